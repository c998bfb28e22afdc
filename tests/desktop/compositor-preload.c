// Preloaded into the pieces of the Wayland desktop that the tests run on, for two things that they refuse on a machine
// without a graphics card where everything runs as root:
//  - the compositor insists on giving up root's rights, and ends if it still could take them back;
//  - the portal's back end takes only pictures that could also be had as a DMA-BUF, which a software renderer does not
//    offer: it is told of one. Its clients still choose memory that can be mapped.
#define _GNU_SOURCE

#include <dlfcn.h>
#include <errno.h>
#include <stdint.h>
#include <stdlib.h>
#include <string.h>
#include <sys/types.h>

// What is started from here does without.
__attribute__((constructor)) static void preloadNothingElse(void)
{
    unsetenv("LD_PRELOAD");
}

int setuid(uid_t user)
{
    (void)user;
    errno = EPERM;
    return -1;
}

int setgid(gid_t group)
{
    (void)group;
    errno = EPERM;
    return -1;
}

struct wl_proxy;
typedef void (*Handler)(void);

// The events of zwlr_screencopy_frame_v1, version 3, in the order of the protocol.
struct ScreencopyHandlers {
    void (*buffer)(void*, struct wl_proxy*, uint32_t format, uint32_t width, uint32_t height, uint32_t stride);
    Handler flags;
    Handler ready;
    Handler failed;
    Handler damage;
    void (*linuxDmabuf)(void*, struct wl_proxy*, uint32_t format, uint32_t width, uint32_t height);
    void (*bufferDone)(void*, struct wl_proxy*);
};

static struct ScreencopyHandlers theirs;
static struct ScreencopyHandlers ours;
static uint32_t frameWidth;
static uint32_t frameHeight;

static void noteBuffer(
    void* data, struct wl_proxy* frame, uint32_t format, uint32_t width, uint32_t height, uint32_t stride)
{
    frameWidth = width;
    frameHeight = height;
    theirs.buffer(data, frame, format, width, height, stride);
}

static void addDmabuf(void* data, struct wl_proxy* frame)
{
    const uint32_t xrgb8888 = 0x34325258; // the FourCC "XR24"
    theirs.linuxDmabuf(data, frame, xrgb8888, frameWidth, frameHeight);
    theirs.bufferDone(data, frame);
}

int wl_proxy_add_listener(struct wl_proxy* proxy, Handler* handlers, void* data)
{
    static int (*addListener)(struct wl_proxy*, Handler*, void*);
    static const char* (*classOf)(struct wl_proxy*);
    if (!addListener) {
        *(void**)&addListener = dlsym(RTLD_NEXT, "wl_proxy_add_listener");
        *(void**)&classOf = dlsym(RTLD_NEXT, "wl_proxy_get_class");
    }
    if (strcmp(classOf(proxy), "zwlr_screencopy_frame_v1") == 0) {
        memcpy(&theirs, handlers, sizeof theirs);
        ours = theirs;
        ours.buffer = noteBuffer;
        ours.bufferDone = addDmabuf;
        handlers = (Handler*)&ours;
    }
    return addListener(proxy, handlers, data);
}
