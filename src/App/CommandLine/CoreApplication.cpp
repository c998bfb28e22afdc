#include "App/CommandLine/CoreApplication.h"

#include "Platform/QtArguments.h"
#include "Translation/Catalogues.h"
#include "Translation/Translate.h"

#include <QtGlobal>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <stdexcept>
#include <unistd.h>

namespace quillbox {

namespace {

/// The toolkit ends the process where it can't open what an event loop needs.
void checkDescriptors()
{
    constexpr std::size_t needed = 8; // a few of them, and some for plugins
    std::array<int, needed> taken{};
    std::ranges::generate(taken, [] { return ::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3); });
    const bool isEnough = taken.back() >= 0 || errno == EBADF; // nothing to duplicate where standard error is closed
    for (const int descriptor : taken) {
        if (descriptor >= 0)
            ::close(descriptor);
    }
    if (!isEnough)
        throw std::runtime_error(
            translate("ErrorReport", "this process may not open enough files; raise the limit with ulimit -n 64"));
}

int& silenced(int& count)
{
    checkDescriptors();
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
