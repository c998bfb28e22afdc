#pragma once

#include "Capture/Journal/CutOffRecordings.h"

#include <QDateTime>
#include <QObject>
#include <QString>

#include <cstdint>
#include <filesystem>
#include <vector>

namespace quillbox {

class CurrentCoordinator;

/// Offers a clip of each recording that was cut off, one after the other. The clip is made as a further clip of the
/// coordinator's: its progress, its end and its failure are told there. A recording that no clip came of stays on disk,
/// and is offered again once nothing is being made. Files are looked at on worker threads. Thread: main.
class CutOffOffer : public QObject {
    Q_OBJECT

public:
    /// @param folder  Of the journals. @pre `coordinator` outlives the offer.
    explicit CutOffOffer(CurrentCoordinator& coordinator, std::filesystem::path folder, QObject* parent = nullptr);
    /// In the program's cache folder.
    explicit CutOffOffer(CurrentCoordinator& coordinator, QObject* parent = nullptr);

    /// Looks for recordings; `changed` tells what came of it.
    void look();

    /// The one that is offered; none where there is nothing to offer. Valid until `changed`.
    [[nodiscard]] const CutOffRecordings::Found* found() const { return m_all.empty() ? nullptr : &m_all.front(); }
    /// When the recording began that is offered, local time. @pre there is one that is not damaged
    [[nodiscard]] QDateTime began() const;
    /// How long it is, at least one. @pre there is one
    [[nodiscard]] std::int64_t seconds() const;
    /// Whether nothing can be made of it. @pre there is one
    [[nodiscard]] bool isDamaged() const { return found()->frameCount == 0; }
    /// Why the latest makeClip() or discard() came to nothing, a sentence without a full stop; empty if it did not.
    [[nodiscard]] const QString& problem() const { return m_problem; }
    /// Whether there is one that is not damaged, and nothing else is being made or done.
    [[nodiscard]] bool canMakeClip() const;
    [[nodiscard]] bool canDiscard() const { return found() != nullptr && !m_isAtWork; }

    /// Has the coordinator make a clip of the one that is offered. Ignored unless canMakeClip().
    void makeClip();
    /// Removes the one that is offered, for good. Ignored unless canDiscard().
    void discard();

Q_SIGNALS:
    /// Anything above has changed.
    void changed();

private:
    void take(std::vector<CutOffRecordings::Found> all);
    void beginWork();
    void endWork(const QString& problem);

    CurrentCoordinator& m_coordinator;
    std::filesystem::path m_folder;
    std::vector<CutOffRecordings::Found> m_all;
    QString m_problem;
    bool m_isAtWork = false; // takes or removes the first
    bool m_isLooking = false;
    bool m_looksAgain = false; // what is being looked at may have changed meanwhile
};

} // namespace quillbox
