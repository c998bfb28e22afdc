#pragma once

namespace quillbox {

/// Has the system back large buffers of pixels by huge pages from now on, which are cheaper to fill and to look up.
/// Where it is refused all works as well, only slower. Called before other threads start.
void preferHugePages() noexcept;

/// Has all threads allocate from one arena, so that what one of them has freed serves the others, and
/// returnFreeMemory() finds it: the allocator keeps the free end of each further arena. Called before other threads
/// start.
void shareOneArena() noexcept;

/// Gives memory that the program has freed back to the system, which the allocator would keep for later. Takes some
/// milliseconds. Thread: any.
void returnFreeMemory() noexcept;

} // namespace quillbox
