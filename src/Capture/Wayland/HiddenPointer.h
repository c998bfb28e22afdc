#pragma once

#include <QCoro/QCoroTask>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <memory>
#include <vector>

namespace quillbox {

class LayerSurface;

/// Keeps the pointer off the screens of a Wayland desktop that lets programs do so, as sway and KWin: else the picture
/// that lies behind the overlay shows it once more, for good. As long as the object lives, but not beyond the limit.
/// Thread: main, with an event loop.
class HiddenPointer : public QObject {
    Q_OBJECT

public:
    /// No picture is worth that a user is without a pointer for longer.
    static constexpr std::chrono::seconds limit{5};
    /// Of hidden(): there may be no pointer.
    static constexpr std::chrono::milliseconds patience{300};

    HiddenPointer();
    ~HiddenPointer() override;

    /// Ends once the compositor has been told, or does not ask; at once where it can't be.
    /// @pre The object outlives the task.
    [[nodiscard]] QCoro::Task<> hidden();

Q_SIGNALS:
    void taken();

private:
    QTimer m_limit;
    std::vector<std::unique_ptr<LayerSurface>> m_covers; // one a screen, on which nothing is to be seen
};

} // namespace quillbox
