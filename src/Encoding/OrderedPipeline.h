#pragma once

#include "Encoding/Parallel.h"

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <utility>

namespace quillbox {

/// Work in three steps on items that come one after another: making an item needs those before it, the work on it does
/// not, and the results are taken in order. All threads share the work; one at a time makes items, a few ahead.
///
/// What is taken does not depend on the number of threads.
template <typename Item, typename Result> class OrderedPipeline {
public:
    struct Steps {
        std::function<std::optional<Item>()> make;               ///< the next item; none after the last
        std::function<std::int64_t(const Item&)> size;           ///< in units of the caller's choice
        std::function<Result(const Item&, int worker)> work;     ///< on several at once; workers as in `parallelFor`
        std::function<bool(const Item&, Result&&)> takesFurther; ///< called in order; false if no more is wanted
    };

    /// @param mostWaiting  Size of the items that wait for work from which on no more are made.
    OrderedPipeline(Steps steps, std::int64_t mostWaiting)
        : m_steps(std::move(steps))
        , m_mostWaiting(mostWaiting)
    {
    }

    /// Returns when all has been taken or no more is wanted. To be called once.
    /// @param itemCount  At least as many as there are items: no more threads are of use.
    /// @throws whatever a step threw (the first one, if several did)
    void run(Parallelism parallelism, std::int64_t itemCount)
    {
        const int workers = workerCount(parallelism, itemCount);
        parallelFor(parallelism, workers, [this](std::int64_t, int worker) {
            try {
                runOn(worker);
            } catch (...) {
                const std::scoped_lock lock(m_mutex);
                m_isOver = true;
                m_changed.notify_all();
                throw;
            }
        });
    }

private:
    struct Slot {
        Item item;
        std::optional<Result> result{};
    };

    void runOn(int worker)
    {
        std::unique_lock lock(m_mutex);
        while (!m_isOver) {
            const bool hasWork = m_begun < m_slots.size();
            if (m_hasMore && !m_isMaking && (!hasWork || m_waiting < m_mostWaiting))
                makeOne(lock);
            else if (hasWork)
                workOnOne(lock, worker);
            else if (!m_hasMore && !m_isMaking)
                return; // the others finish what is left
            else
                m_changed.wait(lock);
        }
    }

    void makeOne(std::unique_lock<std::mutex>& lock)
    {
        m_isMaking = true;
        lock.unlock();
        std::optional<Item> item = m_steps.make();
        lock.lock();
        m_isMaking = false;
        m_hasMore = item.has_value();
        if (item) {
            m_waiting += m_steps.size(*item);
            m_slots.push_back({std::move(*item)});
        }
        m_changed.notify_all();
    }

    void workOnOne(std::unique_lock<std::mutex>& lock, int worker)
    {
        Slot& slot = m_slots[m_begun++]; // stays in its place while others are added behind or taken before it
        m_waiting -= m_steps.size(slot.item);
        lock.unlock();
        Result result = m_steps.work(slot.item, worker);
        lock.lock();
        slot.result = std::move(result);
        while (!m_isOver && !m_slots.empty() && m_slots.front().result) {
            Slot done = std::move(m_slots.front());
            m_slots.pop_front();
            --m_begun;
            m_isOver = !m_steps.takesFurther(done.item, std::move(*done.result));
        }
        m_changed.notify_all();
    }

    Steps m_steps;
    std::int64_t m_mostWaiting;

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Slot> m_slots; ///< from the first one that has not been taken on
    std::size_t m_begun = 0;  ///< of those, how many are worked on or done
    std::int64_t m_waiting = 0;
    bool m_isMaking = false;
    bool m_hasMore = true;
    bool m_isOver = false;
};

} // namespace quillbox
