// Preloaded into KWin 5.27, whose outputs without a screen cannot be cast as it stands: a cast is never told that they
// were painted, and copies from the framebuffer in use, of which there is none between two paints. Here the framebuffer
// that an output is painted into is remembered, a copy is made from it, and every paint is told of, as one of the
// whole. The declarations are those of KWin's and Qt's libraries, as far as they are needed.
#include <dlfcn.h>

#include <cstdlib>
#include <map>
#include <memory>

class QRect {
public:
    int left, top, right, bottom; // inclusive
};

class QSize {
public:
    int width, height;
};

class QRegion {
public:
    enum RegionType { Rectangle, Ellipse };
    QRegion(int x, int y, int width, int height, RegionType type);
    ~QRegion();

    void* data;
};

namespace KWin {

class Output {
public:
    QSize pixelSize() const;
    QRect geometry() const;
    void outputChange(const QRegion& damage);
};

class SceneDelegate {
public:
    Output* output() const;
};

class WorkspaceScene {
public:
    void prePaint(SceneDelegate* delegate);
    void postPaint();
};

class GLTexture;

class AbstractEglBackend {
public:
    std::shared_ptr<GLTexture> textureForOutput(Output* output) const;
};

class GLFramebuffer {
public:
    static void pushFramebuffer(GLFramebuffer* framebuffer);
    static GLFramebuffer* popFramebuffer();
    static GLFramebuffer* currentFramebuffer();
    void blitFromFramebuffer(const QRect& source, const QRect& destination, unsigned filter);
};

namespace {

Output* painted = nullptr; // at present
Output* wanted = nullptr;  // by the cast that copies at present
std::map<Output*, GLFramebuffer*> framebuffers;

/// The function of that name which this library stands before.
template <typename Function> Function next(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

// What is started from here does without.
__attribute__((constructor)) void preloadNothingElse()
{
    unsetenv("LD_PRELOAD");
}

} // namespace

void WorkspaceScene::prePaint(SceneDelegate* delegate)
{
    static const auto real
        = next<void (*)(WorkspaceScene*, SceneDelegate*)>("_ZN4KWin14WorkspaceScene8prePaintEPNS_13SceneDelegateE");
    painted = delegate->output();
    real(this, delegate);
}

void WorkspaceScene::postPaint()
{
    static const auto real = next<void (*)(WorkspaceScene*)>("_ZN4KWin14WorkspaceScene9postPaintEv");
    real(this);
    Output* const output = painted;
    painted = nullptr;
    if (output == nullptr || !framebuffers.contains(output))
        return;
    const QRect place = output->geometry();
    output->outputChange(
        QRegion(place.left, place.top, place.right - place.left + 1, place.bottom - place.top + 1, QRegion::Rectangle));
}

void GLFramebuffer::pushFramebuffer(GLFramebuffer* framebuffer)
{
    static const auto real = next<void (*)(GLFramebuffer*)>("_ZN4KWin13GLFramebuffer15pushFramebufferEPS0_");
    if (painted != nullptr && currentFramebuffer() == nullptr)
        framebuffers[painted] = framebuffer;
    real(framebuffer);
}

void GLFramebuffer::blitFromFramebuffer(const QRect& source, const QRect& destination, unsigned filter)
{
    static const auto real = next<void (*)(GLFramebuffer*, const QRect&, const QRect&, unsigned)>(
        "_ZN4KWin13GLFramebuffer19blitFromFramebufferERK5QRectS3_j");
    if (currentFramebuffer() != nullptr) {
        real(this, source, destination, filter);
        return;
    }
    const auto found = framebuffers.find(wanted);
    if (found == framebuffers.end())
        return; // not painted yet
    const QSize size = wanted->pixelSize();
    const QRect upsideDown{0, size.height, size.width - 1, -1};
    const QRect whole{0, 0, -1, -1}; // null: all of it
    pushFramebuffer(found->second);
    real(this, upsideDown, whole, filter);
    popFramebuffer();
}

std::shared_ptr<GLTexture> AbstractEglBackend::textureForOutput(Output* output) const
{
    static const auto real = next<std::shared_ptr<GLTexture> (*)(const AbstractEglBackend*, Output*)>(
        "_ZNK4KWin18AbstractEglBackend16textureForOutputEPNS_6OutputE");
    wanted = output;
    auto texture = real(this, output);
    wanted = nullptr;
    return texture;
}

} // namespace KWin
