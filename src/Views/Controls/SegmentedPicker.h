#pragma once

#include "Views/Theme.h"

#include <QRadioButton>
#include <QWidget>

#include <vector>

class QButtonGroup;

namespace quillbox {

/// One of the choices of a `SegmentedPicker`.
class Segment : public QRadioButton {
    Q_OBJECT

public:
    Segment(const QString& label, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    [[nodiscard]] bool hitButton(const QPoint& position) const override { return rect().contains(position); }
};

/// A few choices side by side in one frame, exactly one of them chosen. The arrow keys choose too.
class SegmentedPicker : public QWidget {
    Q_OBJECT

public:
    /// @param title  What is chosen, for screen readers.
    SegmentedPicker(const QString& title, const std::vector<QString>& labels, QWidget* parent = nullptr);

    /// Index of the choice, from 0; -1 before the first.
    [[nodiscard]] int choice() const;
    /// Shows a choice without announcing it.
    void setChoice(int index);

Q_SIGNALS:
    /// The user has chosen.
    void chosen(int index);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QButtonGroup* m_group;
};

} // namespace quillbox
