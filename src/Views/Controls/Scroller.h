#pragma once

#include <QScrollArea>

#include <functional>

class QScrollBar;

namespace quillbox {

/// Shows a column of widgets, whose height depends on its width, and scrolls it where there is less room than it needs.
/// What has the keyboard is scrolled into view. Thread: main.
class Scroller : public QScrollArea {
    Q_OBJECT

public:
    /// @param contents     With a layout; this object owns it.
    /// @param spareHeight  How much of its height the column can do without before it is scrolled, device-independent
    ///                     pixels; none for nothing.
    Scroller(QWidget* contents, std::function<int()> spareHeight, QWidget* parent);

    /// What the contents need. The width is `usualWidth`, or more where they can't be as narrow, beside the scroll bar
    /// if `maxHeight` needs one; the height is all that they would like to have.
    [[nodiscard]] QSize fittingSize(int usualWidth, int maxHeight) const;
    [[nodiscard]] bool isScrolling() const { return m_isScrolling; }

    /// A slim bar on whatever is behind it.
    static void style(QScrollBar& bar);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] int spareHeight() const;
    void arrange();

    std::function<int()> m_spareHeight;
    bool m_isScrolling = false;
};

} // namespace quillbox
