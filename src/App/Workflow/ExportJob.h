#pragma once

#include "App/Workflow/ClipExport.h"
#include "App/Workflow/ExportProgress.h"

#include <QFuture>
#include <QObject>

#include <memory>
#include <optional>
#include <stop_token>

namespace quillbox {

/// Makes one clip on a worker thread and tells how far it is. The work owns all that it needs: it goes on when the job
/// is destroyed, and the clip is still saved. Thread: main.
class ExportJob : public QObject {
    Q_OBJECT

public:
    ExportJob();
    ~ExportJob() override;

    /// Begins. To be called once. @pre the recording has a frame; a violation ends the process.
    /// @return What `ClipExport::run` returns; the future throws what that throws.
    [[nodiscard]] QFuture<ClipExport::Saved> start(ClipExport::Recording recording, ExportPreset preset);

    /// None until the encoder has begun. Once the job is finishing, few attempts are left. Its fraction never falls.
    [[nodiscard]] std::optional<ExportProgress> progress() const;

    /// The smallest attempt finished so far becomes the clip, the first one at least. May be called before start().
    void finishNow();
    [[nodiscard]] bool isFinishing() const { return m_stop.stop_requested(); }

Q_SIGNALS:
    /// progress() or isFinishing() has changed. What the encoder says while one is on its way is not announced again.
    void progressChanged();

private:
    class Mailbox;

    void takeProgress();

    std::shared_ptr<Mailbox> m_mailbox;
    std::stop_source m_stop;
    std::optional<GIFOptimizer::Progress> m_latest;
    std::int64_t m_attempts = 0; // at most
};

} // namespace quillbox
