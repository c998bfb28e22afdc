#include "App/CommandLine/ProgressLine.h"

#include "App/CommandLine/TerminationSignals.h"

#include <csignal>
#include <unistd.h>

namespace quillbox {
namespace {

volatile std::sig_atomic_t lineIsShown = 0;

void writeToTerminal(std::string_view text)
{
    // A terminal that has gone away needs no progress.
    [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, text.data(), text.size());
}

/// Ends the line and lets the signal do what it does by default.
extern "C" void endLineAndDie(int signal)
{
    if (lineIsShown != 0)
        writeToTerminal("\n");
    (void)std::raise(signal); // SA_RESETHAND has put the default action back
}

} // namespace

ProgressLine::ProgressLine()
    : m_isTerminal(::isatty(STDERR_FILENO) == 1)
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

void ProgressLine::show(std::string_view text)
{
    if (!m_isTerminal || text == m_shown)
        return;
    m_shown = text;
    lineIsShown = 1;
    writeToTerminal("\r" + m_shown + "\x1b[K"); // and clear what is left of the line before
}

void ProgressLine::clear()
{
    if (m_shown.empty())
        return;
    m_shown.clear();
    writeToTerminal("\r\x1b[K");
    lineIsShown = 0;
}

} // namespace quillbox
