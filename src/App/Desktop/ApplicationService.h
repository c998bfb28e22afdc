#pragma once

#include <QDBusContext>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <cstdint>
#include <functional>
#include <vector>

namespace quillbox {

class CurrentCoordinator;

/// The running application on the session bus: there is one, and others ask it here. Its object also carries the
/// interface by which desktops start applications. Thread: main.
/// @see freedesktop.org, desktop entries, "D-Bus Activation": the interface org.freedesktop.Application
class ApplicationService : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.quillbox.quillbox")
    /// What became of the hotkey, as HotkeyReport::told() has it.
    Q_PROPERTY(QVariantMap Hotkey READ hotkey SCRIPTABLE true)

public:
    /// What the application does for others, beside what the coordinator does.
    struct Actions {
        std::function<void()> showPanel;
        std::function<void()> showSettings;
        std::function<void()> quit;
        std::function<std::int64_t()> frameCount; ///< of the recording that runs
        std::function<QVariantMap()> hotkey;
    };

    /// Where the application is on the bus.
    static QString busName();
    static QString objectPath();
    /// The name of the interface that this object has itself, as the class information above gives it.
    static QString interfaceName();

    ApplicationService(CurrentCoordinator& coordinator, Actions actions, QObject* parent = nullptr);

    enum class Claim {
        Granted,
        Taken, ///< another instance runs
        NoBus, ///< there is no session bus; the application runs all the same, but can't be asked for anything
    };
    /// Makes the object known, then asks for the name; once more after the session bus has been restarted.
    Claim claimName();
    /// Makes room for another instance. Does nothing without the name.
    static void releaseName();

    [[nodiscard]] QVariantMap hotkey() const { return m_actions.hotkey(); }
    void begin();
    void quit() const;

    // What other programs can call, by names as they are usual on the bus.
    // NOLINTBEGIN(readability-identifier-naming,modernize-use-nodiscard)
    /// Begins a flow. Answers with the phase afterwards, as Status does.
    /// @param options  Platform data as above; "precise": whether every change is kept in this clip, whatever the user
    ///                 chose otherwise.
    Q_SCRIPTABLE Q_INVOKABLE QVariantMap Begin(const QVariantMap& options);
    /// Ends the recording; answers, as Status does, once the clip is there or has failed. An error unless recording.
    Q_SCRIPTABLE Q_INVOKABLE QVariantMap Stop();
    /// Makes another clip of what was recorded last; answers as Stop does. An error where nothing was recorded, or
    /// while a clip is being made.
    /// @param options  What differs from the clip before: "precise", whether every change is kept; "preset": slack,
    ///                 github or docs.
    Q_SCRIPTABLE Q_INVOKABLE QVariantMap Again(const QVariantMap& options);
    Q_SCRIPTABLE Q_INVOKABLE void Show(const QVariantMap& platformData) const;
    /// "phase": idle, selecting, recording, processing, done or failed; "frameCount" and "elapsedSeconds" while it
    /// records; "path" and "byteCount" of what is done; "message" of what failed. "clipboard": empty, pending or
    /// accepted, as Clipboard has it.
    Q_SCRIPTABLE Q_INVOKABLE QVariantMap Status() const;
    /// Puts a saved clip on the clipboard; false if the file can't be read, or is no GIF of at most 256 MB.
    Q_SCRIPTABLE Q_INVOKABLE bool Copy(const QString& path);
    Q_SCRIPTABLE Q_INVOKABLE void Quit() const;
    // NOLINTEND(readability-identifier-naming,modernize-use-nodiscard)

private:
    void answerWaiting();

    CurrentCoordinator& m_coordinator;
    Actions m_actions;
    std::vector<QDBusMessage> m_waiting; // calls of Stop and Again that have not been answered
};

} // namespace quillbox
