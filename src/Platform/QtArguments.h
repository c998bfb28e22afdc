#pragma once

namespace quillbox {

/// The arguments that Qt gets: the program's name alone, for the command line has been read and Qt wants none of it. Qt
/// keeps references to them, so they last as long as the process.
struct QtArguments {
    static inline int count = 1;
    static inline char name[] = "quillbox";
    static inline char* values[] = {name, nullptr};
};

} // namespace quillbox
