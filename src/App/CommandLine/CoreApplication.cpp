#include "App/CommandLine/CoreApplication.h"

#include <QtGlobal>

namespace quillbox {

int CoreApplication::argumentCount = 1; // the command line has been read; Qt wants none of it
char CoreApplication::programName[] = "quillbox";
char* CoreApplication::arguments[] = {programName, nullptr};

namespace {

int& silenced(int& count)
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    return count;
}

} // namespace

CoreApplication::CoreApplication()
    : m_application(silenced(argumentCount), arguments) // already its constructor may remark on the locale
{
}

} // namespace quillbox
