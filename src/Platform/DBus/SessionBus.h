#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QTimer>

namespace quillbox {

/// The session bus of this process. A bus can end and be started anew at the same address; the toolkit's own connection
/// then stays dead, so that another one takes its place. Thread: main, except where said otherwise.
class SessionBus : public QObject {
    Q_OBJECT

public:
    /// The connection in force: at first the toolkit's own one. It may have no bus. Thread: any.
    [[nodiscard]] static QDBusConnection connection();

    /// Has a slot of `receiver` called for a signal, whoever sends it: to ask for a sender by its name ends the
    /// process, from within the toolkit, where the connection has just broken.
    /// @param slot  As SLOT() gives it.
    static void listen(
        const QString& path, const QString& interface, const QString& signal, QObject* receiver, const char* slot);

    /// Follows the connection, and connects again once it has broken; where there is no bus now, none is looked for.
    /// One object a process.
    explicit SessionBus(QObject* parent = nullptr);

Q_SIGNALS:
    /// There is another connection now: names, objects and signals have to be registered once more.
    void restored();

private:
    void follow();
    Q_SLOT void noteLoss();
    void connectAgain();

    QTimer m_patience; // until the next attempt
};

} // namespace quillbox
