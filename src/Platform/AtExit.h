#pragma once

#include <functional>

namespace quillbox {

/// Has something done where a library calls exit() while the object lives, as toolkits do when the display is gone:
/// nobody destroys anything then. Thread: any.
class AtExit {
public:
    /// @param work  Called by the thread that calls exit(). It must not make or destroy one of these, nor throw.
    explicit AtExit(std::function<void()> work);
    ~AtExit(); ///< waits where `work` is being done
    AtExit(const AtExit&) = delete;
    AtExit& operator=(const AtExit&) = delete;

private:
    std::function<void()> m_work;
};

} // namespace quillbox
