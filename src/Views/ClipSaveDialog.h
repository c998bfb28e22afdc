#pragma once

#include <QFileDialog>

namespace quillbox {

/// Asks where a clip is to be saved, and tells with fileSelected(). Thread: main.
class ClipSaveDialog : public QFileDialog {
    Q_OBJECT

public:
    ClipSaveDialog();

    /// Opens it, or brings it to the front. @param name  A file's, proposed to the user.
    void ask(const QString& name);
};

} // namespace quillbox
