#include "App/CommandLine/CoreApplication.h"

#include <QtGlobal>

namespace quillbox {

int CoreApplication::s_argumentCount = 1; // the command line has been read; Qt wants none of it
char CoreApplication::s_name[] = "quillbox";
char* CoreApplication::s_arguments[] = {s_name, nullptr};

namespace {

int& silenced(int& argumentCount)
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    return argumentCount;
}

} // namespace

CoreApplication::CoreApplication()
    : m_application(silenced(s_argumentCount), s_arguments) // already its constructor may remark on the locale
{
}

} // namespace quillbox
