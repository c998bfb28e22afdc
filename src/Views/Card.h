#pragma once

#include <QGroupBox>

namespace quillbox {

/// A titled group in a rounded frame.
class Card : public QGroupBox {
    Q_OBJECT

public:
    explicit Card(const QString& title, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
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
