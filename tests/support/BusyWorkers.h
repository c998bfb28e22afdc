#pragma once

#include <QSemaphore>
#include <QThreadPool>

#include <memory>

namespace quillbox::support {

/// While it exists, the toolkit's workers have no time: what is given to them waits.
class BusyWorkers {
public:
    BusyWorkers()
    {
        for (int i = 0; i < count(); ++i)
            QThreadPool::globalInstance()->start([work = m_work] { work->acquire(); });
    }
    ~BusyWorkers() { m_work->release(count()); }
    BusyWorkers(const BusyWorkers&) = delete;
    BusyWorkers& operator=(const BusyWorkers&) = delete;

private:
    static int count() { return QThreadPool::globalInstance()->maxThreadCount(); }

    std::shared_ptr<QSemaphore> m_work = std::make_shared<QSemaphore>();
};

} // namespace quillbox::support
