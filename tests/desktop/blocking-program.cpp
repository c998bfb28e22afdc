// blocking-program HOW MILLISECONDS: an event loop that turns every few milliseconds, and once does not come back for
// so long, or until the watch over it has written a stack. HOW is sleeps or computes, or before or after: then it
// sleeps before the loop begins or when it has ended.
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTimer>

#include <chrono>
#include <cstdlib>
#include <string_view>
#include <thread>

namespace {

bool isNoticed()
{
    constexpr int firstLine = 100; // bytes; the stack is longer
    return QFileInfo(qEnvironmentVariable("EVENT_LOOP_REPORT")).size() > firstLine;
}

} // namespace

int main(int argc, char* argv[])
{
    using namespace std::chrono_literals;
    QCoreApplication application(argc, argv);
    if (argc != 3)
        return 2;
    const std::string_view how = argv[1];
    const int milliseconds = std::atoi(argv[2]);
    const auto block = [how, milliseconds] {
        QElapsedTimer time;
        for (time.start(); time.elapsed() < milliseconds && !isNoticed();)
            if (how != "computes")
                std::this_thread::sleep_for(5ms);
    };
    QTimer turns;
    turns.start(5ms);
    if (how == "before")
        block();
    QTimer::singleShot(150ms, &application, [&] {
        if (how == "computes" || how == "sleeps")
            block();
    });
    QTimer::singleShot(300ms, &application, &QCoreApplication::quit);
    const int status = QCoreApplication::exec();
    if (how == "after")
        block();
    return status;
}
