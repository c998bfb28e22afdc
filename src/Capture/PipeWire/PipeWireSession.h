#pragma once

namespace quillbox {

/// What there is of PipeWire in this session.
struct PipeWireSession {
    bool isRunning = false;
    bool hasManager = false; ///< which connects those who show something with those who look at it

    /// Asks PipeWire, and waits for the answer, for as long as that takes. Thread: any.
    [[nodiscard]] static PipeWireSession look();
};

} // namespace quillbox
