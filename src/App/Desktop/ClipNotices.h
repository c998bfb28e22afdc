#pragma once

#include <QObject>
#include <QString>

#include <functional>

namespace quillbox {

class CurrentCoordinator;
class FileReveal;

/// Tells on the desktop how a clip ended whose end the user does not see, because the panel is closed, unless the user
/// wants no such messages; which is remembered. Thread: main.
class ClipNotices : public QObject {
    Q_OBJECT

public:
    /// @param isSeen  Whether the panel is open.
    /// @pre `coordinator` and `fileReveal` outlive this object.
    ClipNotices(CurrentCoordinator& coordinator, FileReveal& fileReveal, std::function<bool()> isSeen,
        QObject* parent = nullptr);

    /// On unless it was switched off, now or in an earlier run.
    [[nodiscard]] bool isOn() const { return m_isOn; }
    void setOn(bool isOn);

    /// The recording had to end, for `reason` (one sentence without a full stop). Said whether or not the panel is
    /// open.
    void tellOfEarlyEnd(const QString& reason) const;

    /// The selection was still to be seen when the recording began. Said likewise.
    void tellOfRemains() const;

private:
    void follow();

    CurrentCoordinator& m_coordinator;
    FileReveal& m_fileReveal;
    std::function<bool()> m_isSeen;
    bool m_isOn;
};

} // namespace quillbox
