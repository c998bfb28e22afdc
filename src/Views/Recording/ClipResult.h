#pragma once

#include "App/Workflow/CurrentCoordinator.h"
#include "PostCapture/ClipEntry.h"
#include "Views/History/ClipActions.h"

#include <QImage>
#include <QString>
#include <QWidget>

class QLabel;

namespace quillbox {

class FlatButton;

/// What a finished clip looks like, below the line that says that it is done, with buttons that show it and copy it
/// again. Hidden otherwise. Thread: main.
class ClipResult : public QWidget {
    Q_OBJECT

public:
    /// The picture is within this size, device-independent pixels.
    static constexpr QSize largest{96, 54};

    /// @pre `coordinator` outlives the view.
    explicit ClipResult(CurrentCoordinator& coordinator, QWidget* parent = nullptr);

    void setOffersCopy(bool offersCopy);

Q_SIGNALS:
    void requested(quillbox::ClipAction action, const quillbox::ClipEntry& entry);

private:
    void follow();
    void showPicture(const QString& path, const QImage& picture);

    CurrentCoordinator& m_coordinator;
    QLabel* m_picture;
    FlatButton* m_copy;
    QString m_path; // of the clip that is shown; empty: none
};

} // namespace quillbox
