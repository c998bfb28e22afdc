#include "Capture/PipeWire/StreamOffer.h"

#include "Encoding/Precondition.h"

#include <spa/buffer/buffer.h>
#include <spa/buffer/meta.h>
#include <spa/param/buffers.h>
#include <spa/param/format.h>
#include <spa/param/param.h>
#include <spa/pod/builder.h>

#include <utility>

namespace quillbox::StreamOffer {

namespace {

/// One object in a builder; written when it goes out of scope with finish().
class Object {
public:
    Object(spa_pod_builder& builder, std::uint32_t type, std::uint32_t id)
        : m_builder(builder)
    {
        (void)spa_pod_builder_push_object(&m_builder, &m_frame, type, id); // finish() tells whether there was room
    }
    void id(std::uint32_t key, std::uint32_t value)
    {
        property(key);
        (void)spa_pod_builder_id(&m_builder, value);
    }
    void integer(std::uint32_t key, std::int32_t value)
    {
        property(key);
        (void)spa_pod_builder_int(&m_builder, value);
    }
    void fraction(std::uint32_t key, spa_fraction value)
    {
        property(key);
        (void)spa_pod_builder_fraction(&m_builder, value.num, value.denom);
    }
    /// The value is one of several, which `write` writes: the default, then what the kind of choice wants.
    template <typename Write> void choice(std::uint32_t key, std::uint32_t kind, const Write& write)
    {
        property(key);
        spa_pod_frame frame{};
        (void)spa_pod_builder_push_choice(&m_builder, &frame, kind, 0);
        write(m_builder);
        (void)spa_pod_builder_pop(&m_builder, &frame);
    }
    [[nodiscard]] const spa_pod* finish()
    {
        const auto* const object = static_cast<const spa_pod*>(spa_pod_builder_pop(&m_builder, &m_frame));
        precondition(object != nullptr, "an offer fits its memory");
        return object;
    }

private:
    void property(std::uint32_t key) { (void)spa_pod_builder_prop(&m_builder, key, 0); }

    spa_pod_builder& m_builder;
    spa_pod_frame m_frame{};
};

spa_pod_builder builderFor(Memory& memory)
{
    spa_pod_builder builder{};
    spa_pod_builder_init(&builder, memory.data(), static_cast<std::uint32_t>(memory.size()));
    return builder;
}

/// The most welcome first: channels of ten bits are cut to eight, for nothing.
constexpr std::array known{
    std::pair{SPA_VIDEO_FORMAT_BGRx, PixelFormat::BGRx},
    std::pair{SPA_VIDEO_FORMAT_RGBx, PixelFormat::RGBx},
    std::pair{SPA_VIDEO_FORMAT_BGRA, PixelFormat::BGRA},
    std::pair{SPA_VIDEO_FORMAT_RGBA, PixelFormat::RGBA},
    std::pair{SPA_VIDEO_FORMAT_xRGB, PixelFormat::xRGB},
    std::pair{SPA_VIDEO_FORMAT_xBGR, PixelFormat::xBGR},
    std::pair{SPA_VIDEO_FORMAT_ARGB, PixelFormat::ARGB},
    std::pair{SPA_VIDEO_FORMAT_ABGR, PixelFormat::ABGR},
    std::pair{SPA_VIDEO_FORMAT_RGB, PixelFormat::RGB},
    std::pair{SPA_VIDEO_FORMAT_BGR, PixelFormat::BGR},
    std::pair{SPA_VIDEO_FORMAT_xRGB_210LE, PixelFormat::xRGB2101010},
    std::pair{SPA_VIDEO_FORMAT_xBGR_210LE, PixelFormat::xBGR2101010},
    std::pair{SPA_VIDEO_FORMAT_RGBx_102LE, PixelFormat::RGBx1010102},
    std::pair{SPA_VIDEO_FORMAT_BGRx_102LE, PixelFormat::BGRx1010102},
    std::pair{SPA_VIDEO_FORMAT_ARGB_210LE, PixelFormat::ARGB2101010},
    std::pair{SPA_VIDEO_FORMAT_ABGR_210LE, PixelFormat::ABGR2101010},
    std::pair{SPA_VIDEO_FORMAT_RGBA_102LE, PixelFormat::RGBA1010102},
    std::pair{SPA_VIDEO_FORMAT_BGRA_102LE, PixelFormat::BGRA1010102},
};

} // namespace

const spa_pod* formats(Memory& memory)
{
    spa_pod_builder builder = builderFor(memory);
    Object object(builder, SPA_TYPE_OBJECT_Format, SPA_PARAM_EnumFormat);
    object.id(SPA_FORMAT_mediaType, SPA_MEDIA_TYPE_video);
    object.id(SPA_FORMAT_mediaSubtype, SPA_MEDIA_SUBTYPE_raw);
    object.choice(SPA_FORMAT_VIDEO_format, SPA_CHOICE_Enum, [](spa_pod_builder& to) {
        (void)spa_pod_builder_id(&to, known.front().first);
        for (const auto& each : known)
            (void)spa_pod_builder_id(&to, each.first);
    });
    object.choice(SPA_FORMAT_VIDEO_size, SPA_CHOICE_Range, [](spa_pod_builder& to) {
        constexpr std::uint32_t longestSide = 32768;
        (void)spa_pod_builder_rectangle(&to, 1920, 1080);
        (void)spa_pod_builder_rectangle(&to, 1, 1);
        (void)spa_pod_builder_rectangle(&to, longestSide, longestSide);
    });
    object.fraction(SPA_FORMAT_VIDEO_framerate, {0, 1}); // whenever something changes
    object.choice(SPA_FORMAT_VIDEO_maxFramerate, SPA_CHOICE_Range, [](spa_pod_builder& to) {
        (void)spa_pod_builder_fraction(&to, 30, 1);
        (void)spa_pod_builder_fraction(&to, 1, 1);
        (void)spa_pod_builder_fraction(&to, 30, 1);
    });
    return object.finish();
}

const spa_pod* buffers(Memory& memory)
{
    spa_pod_builder builder = builderFor(memory);
    Object object(builder, SPA_TYPE_OBJECT_ParamBuffers, SPA_PARAM_Buffers);
    object.choice(SPA_PARAM_BUFFERS_buffers, SPA_CHOICE_Range, [](spa_pod_builder& to) {
        (void)spa_pod_builder_int(&to, 6);
        (void)spa_pod_builder_int(&to, 2);
        (void)spa_pod_builder_int(&to, 16);
    });
    object.choice(SPA_PARAM_BUFFERS_dataType, SPA_CHOICE_Flags,
        [](spa_pod_builder& to) { (void)spa_pod_builder_int(&to, 1 << SPA_DATA_MemPtr | 1 << SPA_DATA_MemFd); });
    return object.finish();
}

std::vector<const spa_pod*> metadata(Memory& memory)
{
    struct Wanted {
        std::uint32_t type;
        std::size_t size;
        std::size_t leastSize;
    };
    constexpr std::array wanted{
        Wanted{SPA_META_Header, sizeof(spa_meta_header), sizeof(spa_meta_header)},
        Wanted{SPA_META_VideoCrop, sizeof(spa_meta_region), sizeof(spa_meta_region)},
        Wanted{SPA_META_VideoTransform, sizeof(spa_meta_videotransform), sizeof(spa_meta_videotransform)},
        Wanted{SPA_META_VideoDamage, maxDamage * sizeof(spa_meta_region), sizeof(spa_meta_region)},
    };
    spa_pod_builder builder = builderFor(memory);
    std::vector<const spa_pod*> result;
    for (const Wanted& each : wanted) {
        Object object(builder, SPA_TYPE_OBJECT_ParamMeta, SPA_PARAM_Meta);
        object.id(SPA_PARAM_META_type, each.type);
        if (each.size == each.leastSize)
            object.integer(SPA_PARAM_META_size, static_cast<std::int32_t>(each.size));
        else
            object.choice(SPA_PARAM_META_size, SPA_CHOICE_Range, [&](spa_pod_builder& to) {
                (void)spa_pod_builder_int(&to, static_cast<std::int32_t>(each.size));
                (void)spa_pod_builder_int(&to, static_cast<std::int32_t>(each.leastSize));
                (void)spa_pod_builder_int(&to, static_cast<std::int32_t>(each.size));
            });
        result.push_back(object.finish());
    }
    return result;
}

std::optional<PixelFormat> orderOf(spa_video_format format)
{
    for (const auto& [theirs, ours] : known)
        if (theirs == format)
            return ours;
    return std::nullopt;
}

} // namespace quillbox::StreamOffer
