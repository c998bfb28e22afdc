#pragma once

#include "ScriptedUpdates.h"

#include "App/Updates/UpdaterController.h"
#include "App/Workflow/CurrentCoordinator.h"
#include "Capture/CaptureError.h"
#include "Capture/RecorderControlling.h"
#include "Capture/Region/RegionSelector.h"
#include "PostCapture/FileReveal.h"
#include "PostCapture/HistoryStore.h"

#include <QPromise>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillbox::test {

/// A recorder that does as it is told.
class ScriptedRecorder : public RecorderControlling {
public:
    std::optional<std::string> refusal;                            ///< why the next start fails
    std::vector<RGBAFrame> frames{RGBAFrame(2, 1, Bytes(8, 200))}; ///< what the next stop returns
    bool holdsStop = false;                                        ///< stop() finishes only at release()
    int starts = 0;
    int stops = 0;

    [[nodiscard]] bool isRecording() const override { return m_recording; }
    QCoro::Task<> start(CaptureRegion region) override;
    QCoro::Task<Recording> stop() override;
    void release();

private:
    bool m_recording = false;
    std::optional<QPromise<void>> m_gate;
};

/// A selection that the test makes.
class ScriptedSelector : public RegionSelector {
public:
    void present(Completion completion) override { m_completion = std::move(completion); }
    /// The user is done with the overlay.
    void finish(Outcome outcome);
    [[nodiscard]] bool isPresented() const { return m_completion != nullptr; }

private:
    Completion m_completion;
};

class RememberingReveal : public FileReveal {
public:
    QStringList revealed;

    void reveal(const QString& path) override { revealed.append(path); }
};

/// What the views show: real objects, around a recorder, a selection and services that the test directs.
class ViewsFixture {
public:
    ViewsFixture();

    // The user's way to each phase, from a fresh fixture.
    void select();
    void record();
    /// Ends in `Processing`; the event loop then goes on to `Done`.
    void process();
    void finish();
    /// Ends a recording that can't be made into a clip, in `Failed`.
    void stopInVain();
    void fail(const std::string& reason);

    [[nodiscard]] const RecordingCoordinator::Phase& phase() const { return coordinator.phase(); }
    template <typename P> [[nodiscard]] bool isIn() const { return coordinator.isIn<P>(); }

    QTemporaryDir folder;
    std::shared_ptr<HistoryStore> history;
    std::shared_ptr<ScriptedRecorder> recorder = std::make_shared<ScriptedRecorder>();
    std::shared_ptr<ScriptedSelector> selector = std::make_shared<ScriptedSelector>();
    CurrentCoordinator coordinator;
    ScriptedUpdates* updates; // the updater's
    UpdaterController updater;
    RememberingReveal reveal;
};

/// Pictures that differ in so few pixels that only a precise clip shows them all.
[[nodiscard]] std::vector<RGBAFrame> smallChanges(int count);

/// While it exists, a file is where the folder of the videos has to be: no clip can be saved.
class ClipsFolderInTheWay {
public:
    ClipsFolderInTheWay();
    ~ClipsFolderInTheWay();
    ClipsFolderInTheWay(const ClipsFolderInTheWay&) = delete;
    ClipsFolderInTheWay& operator=(const ClipsFolderInTheWay&) = delete;
};

/// A clip of the history with everything that the program writes.
[[nodiscard]] ClipEntry clip(const QString& path, std::int64_t byteCount = 1'234'567, double seconds = 3.4);

} // namespace quillbox::test
