#pragma once

namespace quillbox {

class RecordingJournal;

/// The journals of this process, which are ended when something calls exit(), as toolkits do when the display is gone:
/// nobody destroys them then. Stateless; thread: any.
namespace JournalsAtExit {

void add(RecordingJournal& journal);
/// Called before the journal goes.
void remove(RecordingJournal& journal);

} // namespace JournalsAtExit
} // namespace quillbox
