#pragma once

#include <QWidget>

namespace quillbox {

/// A titled group: the title, and below it a rounded frame for what belongs together.
class Card : public QWidget {
    Q_OBJECT

public:
    explicit Card(const QString& title, QWidget* parent = nullptr);

    /// What lies in the frame: give it a layout.
    [[nodiscard]] QWidget* body() const { return m_body; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* m_body;
};

/// A line between two parts of a window, one device-independent pixel high.
class Divider : public QWidget {
    Q_OBJECT

public:
    explicit Divider(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quillbox
