#pragma once

#include <QString>
#include <QWidget>

namespace quillbox {

class TextLabel;

/// A sentence on what is not as usual, below the status. Hidden while there is none. Thread: main.
class NoticeLine : public QWidget {
    Q_OBJECT

public:
    explicit NoticeLine(QWidget* parent = nullptr);

    /// Says it instead of what it said before; nothing where it is empty.
    void setText(const QString& text);

private:
    TextLabel* m_text;
};

} // namespace quillbox
