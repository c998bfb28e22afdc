#pragma once

#include "App/Workflow/ClipExport.h"
#include "App/Workflow/ExportProgress.h"
#include "Encoding/GIFOptimizer.h"
#include "Platform/Mailbox.h"

#include <QCoro/QCoroTask>
#include <QFuture>
#include <QObject>
#include <QString>

#include <memory>
#include <optional>
#include <stop_token>
#include <variant>

namespace quillbox {

class HistoryStore;

/// Makes one clip on a worker thread and tells how far it is: one long piece of work whose result the event loop
/// awaits, and so one for the toolkit's own workers. The work owns all that it needs: it goes on when the job is
/// destroyed, and the clip is still saved. Thread: main.
class ExportJob : public QObject {
    Q_OBJECT

public:
    ExportJob();

    /// Begins. To be called once. @pre the recording has a frame; a violation ends the process.
    /// @return What `ClipExport::run` returns; the future throws what that throws.
    [[nodiscard]] QFuture<ClipExport::Saved> start(Recording recording, const ClipRequest& request);

    struct Failure {
        QString message;      ///< for the user, as it stands
        bool mayPass = false; ///< with more room, or in another folder
    };
    using Outcome = std::variant<FinishedClip, Failure>;

    /// Does what start() does, then copies the clip and puts it at the head of the history.
    /// @return Nothing if the job was destroyed meanwhile; the clip is then neither copied nor in the history.
    [[nodiscard]] QCoro::Task<std::optional<Outcome>> make(
        Recording recording, ClipRequest request, std::shared_ptr<HistoryStore> history);

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
