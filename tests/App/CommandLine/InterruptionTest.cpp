#include "ProgramFixture.h"

#include "support/Pictures.h"

#include <csignal>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillbox {
namespace {

/// The program on a terminal of its own.
class OnTerminal {
public:
    explicit OnTerminal(
        std::vector<std::string> command, const std::string& terminal = "xterm", unsigned short columns = 80)
    {
        std::vector<char*> arguments;
        for (auto& word : command)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        m_child = ::forkpty(&m_terminal, nullptr, nullptr, nullptr);
        if (m_child == 0) {
            ::setenv("TERM", terminal.c_str(), 1); // NOLINT(concurrency-mt-unsafe): a child that has one thread
            struct winsize size { };
            size.ws_col = columns;
            size.ws_row = 24;
            ::ioctl(STDERR_FILENO, TIOCSWINSZ, &size);
            ::execv(arguments[0], arguments.data());
            ::_exit(127);
        }
    }
    OnTerminal(const OnTerminal&) = delete;
    OnTerminal& operator=(const OnTerminal&) = delete;
    ~OnTerminal()
    {
        if (m_child > 0) {
            ::kill(m_child, SIGKILL);
            ::waitpid(m_child, nullptr, 0);
        }
        ::close(m_terminal);
    }

    /// Reads until the terminal has shown `text`. @return whether it did.
    bool waitFor(const std::string& text)
    {
        while (m_seen.find(text) == std::string::npos) {
            char buffer[4096];
            const auto got = ::read(m_terminal, buffer, sizeof buffer);
            if (got <= 0)
                return false;
            m_seen.append(buffer, static_cast<std::size_t>(got));
        }
        return true;
    }
    /// Types a character: 3 is Ctrl-C.
    void type(char character) const { EXPECT_EQ(::write(m_terminal, &character, 1), 1); }
    void send(int signal) const { ::kill(m_child, signal); }

    /// The status as waitpid gives it.
    int waitForEnd()
    {
        (void)waitFor("\xFF never shown");
        int status = 0;
        ::waitpid(m_child, &status, 0);
        m_child = -1;
        return status;
    }
    [[nodiscard]] const std::string& seen() const { return m_seen; }

private:
    pid_t m_child = -1;
    int m_terminal = -1;
    std::string m_seen;
};

class Interruption : public ProgramFixture {
protected:
    /// Encodes noise, which fits no budget, so that all five attempts are made.
    [[nodiscard]] std::vector<std::string> longCommand() const
    {
        EXPECT_EQ(shell("head -c 57600000 /dev/urandom > noise.rgba").exitStatus, 0); // 25 pictures, of which 10 stay
        return {program, "encode", "--raw", "960x600", path("noise.rgba")};
    }
};

TEST_F(Interruption, ByCtrlCInTheMiddleOfAnEncodeLeavesNothing)
{
    OnTerminal encode(longCommand());
    ASSERT_TRUE(encode.waitFor("palette 1 of 5: 64 colours, "));
    encode.type(3);
    const int status = encode.waitForEnd();
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT) << status;
    EXPECT_EQ(fileNames(), (std::set<std::string>{"noise.rgba"}));
    EXPECT_EQ(encode.seen().substr(encode.seen().size() - 2), "\r\n") << "the prompt starts on a fresh line";
}

TEST_F(Interruption, BySIGTERMWhileReadingLeavesNothing)
{
    OnTerminal encode(
        {"/bin/sh", "-c", "exec \"$0\" encode --raw 960x600 -o \"$1\" - < /dev/zero", program, path("x.gif")});
    ASSERT_TRUE(encode.waitFor("reading"));
    encode.send(SIGTERM);
    const int status = encode.waitForEnd();
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM) << status;
    EXPECT_EQ(fileNames(), std::set<std::string>{});
}

TEST_F(Interruption, IsNotNeededToSeeTheEnd)
{
    writeRaw("small.rgba", {support::solid(4, 4, support::gray(5))});
    OnTerminal encode({program, "encode", "--raw", "4x4", path("small.rgba")});
    const int status = encode.waitForEnd();
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << encode.seen();
    const auto line = encode.seen().rfind("\r\x1b[K");
    ASSERT_NE(line, std::string::npos);
    EXPECT_EQ(encode.seen().find("/small.gif: ", line) != std::string::npos, true)
        << "the result stands where the progress was: " << encode.seen();
}

TEST_F(Interruption, IsNotNeededOnATerminalWithoutEscapes)
{
    OnTerminal encode(longCommand(), "dumb");
    const int status = encode.waitForEnd();
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << encode.seen();
    EXPECT_EQ(encode.seen().find('\x1b'), std::string::npos);
    EXPECT_NE(encode.seen().find("\rpalette 5 of 5: 16 colours, 100 %"), std::string::npos) << "it ends at 100";
}

TEST_F(Interruption, IsNotNeededToKeepTheProgressOnOneLine)
{
    OnTerminal encode(longCommand(), "xterm", 20);
    ASSERT_TRUE(encode.waitFor("\rpalette 1 of 5: ...\x1b[K")) << "19 columns";
    EXPECT_EQ(encode.seen().find("64 colours"), std::string::npos);
}

TEST_F(Interruption, IsNotNeededToHaveItQuiet)
{
    writeRaw("small.rgba", {support::solid(4, 4, support::gray(5))});
    OnTerminal encode({program, "encode", "--quiet", "--raw", "4x4", path("small.rgba")});
    const int status = encode.waitForEnd();
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    EXPECT_EQ(encode.seen(), "");
    EXPECT_TRUE(fileNames().contains("small.gif"));
}

TEST_F(Interruption, IsWhatATerminalAsOutputGets)
{
    writeRaw("small.rgba", {support::solid(4, 4, support::gray(5))});
    OnTerminal encode({program, "encode", "--raw", "4x4", "-o", "-", path("small.rgba")});
    const int status = encode.waitForEnd();
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 2);
    EXPECT_EQ(encode.seen(),
        "quillbox: standard output is a terminal, which can't show a GIF; redirect it, or name a file with -o\r\n");
}

} // namespace
} // namespace quillbox
