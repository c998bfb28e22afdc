#pragma once

#include "App/Workflow/ClipExport.h"
#include "App/Workflow/ExportProgress.h"
#include "Encoding/GIFOptimizer.h"
#include "Platform/Mailbox.h"

#include <QFuture>
#include <QObject>

#include <optional>
#include <stop_token>

namespace quillbox {

/// Makes one clip on a worker thread and tells how far it is: one long piece of work whose result the event loop
/// awaits, and so one for the toolkit's own workers. The work owns all that it needs: it goes on when the job is
/// destroyed, and the clip is still saved. Thread: main.
class ExportJob : public QObject {
    Q_OBJECT

public:
    ExportJob();

    /// Begins. To be called once. @pre the recording has a frame; a violation ends the process.
    /// @return What `ClipExport::run` returns; the future throws what that throws.
    [[nodiscard]] QFuture<ClipExport::Saved> start(Recording recording, ExportPreset preset);

    /// None until the encoder has begun. Once the job is finishing, few attempts are left. Its fraction never falls.
    [[nodiscard]] std::optional<ExportProgress> progress() const;

    /// The smallest attempt finished so far becomes the clip, the first one at least. May be called before start().
    void finishNow();
    [[nodiscard]] bool isFinishing() const { return m_stop.stop_requested(); }

Q_SIGNALS:
    /// progress() or isFinishing() has changed. What the encoder says while one is on its way is not announced again.
    void progressChanged();

private:
    void takeProgress();

    Mailbox<GIFOptimizer::Progress> m_mailbox; // the worker's latest word
    std::stop_source m_stop;
    std::optional<GIFOptimizer::Progress> m_latest;
    std::int64_t m_attempts = 0; // at most
};

} // namespace quillbox
