#pragma once

#include <QCheckBox>

namespace quillbox {

/// Something that is on or off: a small text with a knob beside it that slides. Quiet while it is off.
class Switch : public QCheckBox {
    Q_OBJECT

public:
    /// @param label  Plain text: an ampersand is one.
    explicit Switch(const QString& label, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    [[nodiscard]] bool hitButton(const QPoint& position) const override { return rect().contains(position); }
};

} // namespace quillbox
