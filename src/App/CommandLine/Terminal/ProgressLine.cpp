#include "App/CommandLine/Terminal/ProgressLine.h"

#include "App/CommandLine/Terminal/TerminalText.h"
#include "App/CommandLine/Terminal/TextColumns.h"
#include "App/CommandLine/TerminationSignals.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <sys/ioctl.h>
#include <unistd.h>

namespace quillbox {
namespace {

volatile std::sig_atomic_t lineIsShown = 0;

void writeToTerminal(std::string_view text)
{
    // A terminal that has gone away needs no progress.
    [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, text.data(), text.size());
}

bool isDumb()
{
    const char* const terminal = std::getenv("TERM");
    return terminal == nullptr || *terminal == '\0' || std::string_view(terminal) == "dumb";
}

/// 80 where the terminal doesn't tell; never less than 2.
std::size_t columnsOfTerminal()
{
    constexpr std::size_t usual = 80;
    struct winsize size { };
    if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0)
        return usual;
    return std::max<std::size_t>(size.ws_col, 2);
}

/// Ends the line and lets the signal do what it does by default.
extern "C" void endLineAndDie(int signal)
{
    if (lineIsShown != 0)
        writeToTerminal("\n");
    (void)std::raise(signal); // SA_RESETHAND has put the default action back
}

} // namespace

ProgressLine::ProgressLine(bool isWanted)
    : m_isTerminal(isWanted && ::isatty(STDERR_FILENO) == 1)
    , m_isDumb(isDumb())
{
    if (!m_isTerminal)
        return;
    struct sigaction action { };
    action.sa_handler = endLineAndDie;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_NODEFER);
    for (const int signal : endingSignals) {
        struct sigaction before { };
        ::sigaction(signal, nullptr, &before);
        if (before.sa_handler != SIG_IGN) // nohup stays in force
            ::sigaction(signal, &action, nullptr);
    }
}

ProgressLine::~ProgressLine()
{
    clear();
    if (!m_isTerminal)
        return;
    for (const int signal : endingSignals) {
        struct sigaction before { };
        ::sigaction(signal, nullptr, &before);
        if (before.sa_handler == endLineAndDie)
            (void)std::signal(signal, SIG_DFL); // a valid signal; nothing to go back to
    }
}

void ProgressLine::replaceBy(std::string_view text)
{
    // One column less than there are: some terminals begin a new line as soon as the last one is filled.
    const std::string line = TextColumns::shortened(text, columnsOfTerminal() - 1);
    const std::size_t columnsNow = TextColumns::widthOf(line);
    std::string output = "\r" + TerminalText::encoded(line, TerminalText::localeEncoding());
    if (!m_isDumb)
        output += "\x1b[K"; // clear what is left of the line before
    else if (columnsNow < m_shownColumns)
        output += std::string(m_shownColumns - columnsNow, ' ') + (line.empty() ? "\r" : "");
    writeToTerminal(output);
    m_shownColumns = columnsNow;
}

void ProgressLine::show(std::string_view text)
{
    if (!m_isTerminal || text == m_shown)
        return;
    m_shown = text;
    lineIsShown = 1;
    replaceBy(text);
}

void ProgressLine::clear()
{
    if (m_shown.empty())
        return;
    m_shown.clear();
    replaceBy({});
    lineIsShown = 0;
}

} // namespace quillbox
