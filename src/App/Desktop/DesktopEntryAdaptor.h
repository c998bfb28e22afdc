#pragma once

#include <QDBusAbstractAdaptor>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

#include <functional>

namespace quillbox {

/// How desktops start the application and the actions of its desktop entry. Thread: main.
/// @see freedesktop.org, desktop entries, "D-Bus Activation"
class DesktopEntryAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    struct Actions {
        std::function<void()> showPanel;
        std::function<void()> showSettings;
        std::function<void()> begin; ///< a recording
    };

    /// @param object  What the interface is added to; it owns this.
    DesktopEntryAdaptor(QObject* object, Actions actions);

    /// Gives the next window the focus: the user has just clicked or pressed a key for it.
    /// @param platformData  As the interface has it.
    static void passOnActivation(const QVariantMap& platformData);

public Q_SLOTS: // NOLINT(readability-redundant-access-specifiers): Qt sees another one
    // NOLINTBEGIN(readability-identifier-naming): names on the bus
    void Activate(const QVariantMap& platformData) const;
    /// There is nothing to open: the panel is shown.
    void Open(const QStringList& uris, const QVariantMap& platformData) const;
    /// "record-region" or "settings"; another name does nothing.
    void ActivateAction(
        const QString& actionName, const QVariantList& parameter, const QVariantMap& platformData) const;
    // NOLINTEND(readability-identifier-naming)

private:
    Actions m_actions;
};

} // namespace quillbox
