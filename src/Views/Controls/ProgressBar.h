#pragma once

#include <QProgressBar>

namespace quillbox {

/// How far something is, as a thin rounded line in the accent colour. Moves when its value does and not by itself;
/// screen readers are told the name and the percentage.
class ProgressBar : public QProgressBar {
    Q_OBJECT

public:
    /// @param name  What screen readers call it.
    explicit ProgressBar(const QString& name, QWidget* parent = nullptr);

    /// @param fraction  0…1; what a whole percent is not reached of is not shown.
    void setFraction(double fraction);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quillbox
