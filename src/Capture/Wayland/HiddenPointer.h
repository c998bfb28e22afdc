#pragma once

#include <QTimer>

#include <chrono>
#include <memory>
#include <vector>

namespace quillbox {

class LayerSurface;

/// Keeps the pointer off the screens of a Wayland desktop that lets programs do so, as sway and KWin: else the picture
/// that lies behind the overlay shows it once more, for good. As long as the object lives, but not beyond the limit;
/// takes a moment to have an effect. Thread: main, with an event loop.
class HiddenPointer {
public:
    /// No picture is worth that a user is without a pointer for longer.
    static constexpr std::chrono::seconds limit{2};

    HiddenPointer();
    ~HiddenPointer();
    HiddenPointer(const HiddenPointer&) = delete;
    HiddenPointer& operator=(const HiddenPointer&) = delete;

private:
    QTimer m_limit;
    std::vector<std::unique_ptr<LayerSurface>> m_covers; // one a screen, on which nothing is to be seen
};

} // namespace quillbox
