#pragma once

#include <QByteArray>

#include <functional>
#include <utility>

namespace quillbox {

/// Bytes for the clipboard. Those of a clip may lie in a file until a program asks for them. Copies share them.
class ClipboardBytes {
public:
    // NOLINTNEXTLINE(google-explicit-constructor): bytes are bytes
    ClipboardBytes(QByteArray bytes)
        : m_read([bytes = std::move(bytes)] { return bytes; })
    {
    }
    // NOLINTNEXTLINE(google-explicit-constructor): as QByteArray's own
    ClipboardBytes(const char* text)
        : ClipboardBytes(QByteArray(text))
    {
    }
    /// @param read  Called in the main thread, whenever they are wanted; throws nothing.
    explicit ClipboardBytes(std::function<QByteArray()> read)
        : m_read(std::move(read))
    {
    }

    [[nodiscard]] QByteArray read() const { return m_read(); }

private:
    std::function<QByteArray()> m_read;
};

} // namespace quillbox
