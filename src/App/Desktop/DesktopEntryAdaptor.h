#pragma once

#include <QDBusAbstractAdaptor>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

namespace quillbox {

class ApplicationService;

/// How desktops start the application and the actions of its desktop entry. Thread: main.
/// @see freedesktop.org, desktop entries, "D-Bus Activation"
class DesktopEntryAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit DesktopEntryAdaptor(ApplicationService& service);

public Q_SLOTS: // NOLINT(readability-redundant-access-specifiers): Qt sees another one
    // NOLINTBEGIN(readability-identifier-naming): names on the bus
    void Activate(const QVariantMap& platformData);
    /// There is nothing to open: the panel is shown.
    void Open(const QStringList& uris, const QVariantMap& platformData);
    /// "record-region" or "settings"; another name does nothing.
    void ActivateAction(const QString& actionName, const QVariantList& parameter, const QVariantMap& platformData);
    // NOLINTEND(readability-identifier-naming)

private:
    ApplicationService& m_service;
};

} // namespace quillbox
