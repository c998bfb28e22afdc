#include "App/CommandLine/CoreApplication.h"

#include "Platform/QtArguments.h"
#include "Translation/Catalogues.h"

#include <QtGlobal>

namespace quillbox {

namespace {

int& silenced(int& count)
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    return count;
}

} // namespace

CoreApplication::CoreApplication()
    : m_application(
        silenced(QtArguments::count), QtArguments::values) // already its constructor may remark on the locale
{
    Catalogues::install();
}

} // namespace quillbox
