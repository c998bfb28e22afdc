#pragma once

#include "Capture/Region/MonitorNotice.h"

#include <QObject>

#include <memory>
#include <vector>

namespace quillbox {

class LayerOutput;
class LayerSurface;
class SelectionWindow;

/// While a region is selected on one monitor, a press on another one has a line there say on which recording is
/// possible: on an X server, and on Wayland where the compositor lets programs place something. Thread: main.
class OtherMonitors : public QObject {
    Q_OBJECT

public:
    /// @param overlay     On `recordable`, the only one. It owns this object, which does nothing once it has finished.
    OtherMonitors(SelectionWindow& overlay, const QScreen& recordable);
    ~OtherMonitors() override;

private:
    /// One of them on Wayland: all of it takes the pointer, and nothing of it is seen but the line.
    struct Watched {
        std::shared_ptr<LayerOutput> output;
        std::unique_ptr<LayerSurface> cover;
    };

    void watch(const QScreen& other);
    void sayAt(const QPoint& pressed);
    void sayOn(const std::shared_ptr<LayerOutput>& output, const QPoint& pressed);
    void end();

    MonitorNotice m_notice; // on Wayland never a window
    std::vector<Watched> m_watched;
    std::unique_ptr<LayerSurface> m_line; // the notice's picture
};

} // namespace quillbox
