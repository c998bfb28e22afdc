#pragma once

#include <unistd.h>

#include <utility>

namespace quillbox {

/// Owns a file descriptor, or none (-1).
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int number)
        : m_number(number)
    {
    }
    FileDescriptor(FileDescriptor&& other) noexcept
        : m_number(other.release())
    {
    }
    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor()
    {
        if (m_number >= 0)
            (void)::close(m_number); // a file that is written is synced, or checked otherwise, before
    }

    [[nodiscard]] int number() const { return m_number; }
    /// Gives the descriptor away.
    [[nodiscard]] int release() { return std::exchange(m_number, -1); }

private:
    int m_number = -1;
};

} // namespace quillbox
