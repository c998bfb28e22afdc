#include "Platform/Wayland/LayerCursor.h"

#include "Platform/CHandle.h"

#include <QByteArray>

#include <wayland-cursor.h>

namespace quillbox {
namespace {

constexpr int usualSize = 24; // points, where the desktop says nothing

int cursorSize()
{
    bool isSaid = false;
    const int said = qEnvironmentVariableIntValue("XCURSOR_SIZE", &isSaid);
    return isSaid && said > 0 && said <= 512 ? said : usualSize;
}

} // namespace

struct LayerCursor::Arrow {
    // Destroyed from the last to the first.
    CHandle<wl_cursor_theme, wl_cursor_theme_destroy> theme;
    CHandle<wl_surface, wl_surface_destroy> surface;
    int hotSpotX = 0; // points
    int hotSpotY = 0;
};

LayerCursor::LayerCursor(wl_compositor* compositor, wl_shm* memory, int scale)
{
    const QByteArray name = qgetenv("XCURSOR_THEME");
    auto arrow = std::make_unique<Arrow>();
    arrow->theme.reset(wl_cursor_theme_load(name.isEmpty() ? nullptr : name.constData(), cursorSize() * scale, memory));
    wl_cursor* const cursor = arrow->theme ? wl_cursor_theme_get_cursor(arrow->theme.get(), "left_ptr") : nullptr;
    if (cursor == nullptr || cursor->image_count == 0)
        return;
    wl_cursor_image* const image = cursor->images[0];
    wl_buffer* const buffer = wl_cursor_image_get_buffer(image); // the theme's
    if (buffer == nullptr)
        return;
    const auto pixels = static_cast<std::uint32_t>(scale);
    const bool isDense = image->width % pixels == 0 && image->height % pixels == 0; // else it is of another size
    const int pixelsAPoint = isDense ? scale : 1;
    arrow->hotSpotX = static_cast<int>(image->hotspot_x) / pixelsAPoint;
    arrow->hotSpotY = static_cast<int>(image->hotspot_y) / pixelsAPoint;
    arrow->surface.reset(wl_compositor_create_surface(compositor));
    if (pixelsAPoint > 1)
        wl_surface_set_buffer_scale(arrow->surface.get(), pixelsAPoint);
    wl_surface_attach(arrow->surface.get(), buffer, 0, 0);
    wl_surface_damage(arrow->surface.get(), 0, 0, INT32_MAX, INT32_MAX);
    wl_surface_commit(arrow->surface.get());
    m_arrow = std::move(arrow);
}

LayerCursor::~LayerCursor() = default;

void LayerCursor::show(wl_pointer* pointer, std::uint32_t serial) const
{
    if (m_arrow)
        wl_pointer_set_cursor(pointer, serial, m_arrow->surface.get(), m_arrow->hotSpotX, m_arrow->hotSpotY);
}

} // namespace quillbox
