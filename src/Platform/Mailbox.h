#pragma once

#include <QMetaObject>
#include <QObject>

#include <functional>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace quillbox {

/// Values on their way from any threads to the receiver's, where a callback takes them. However fast they come, one
/// announcement at most waits in the receiver's event loop. Thread: the receiver's.
template <typename T> class Mailbox {
    struct State;

public:
    /// What the other threads hold. It may outlive the mailbox: then what it is given is dropped. Thread: any.
    class Sender {
    public:
        /// Adds a value to those that wait.
        void send(T value) const
        {
            m_state->announce([&value](auto& waiting) { waiting.push_back(std::move(value)); });
        }

        /// The same, but drops those that wait: only the latest value counts.
        void sendLatest(T value) const
        {
            std::vector<T> latest;
            latest.push_back(std::move(value));
            m_state->announce([&latest](auto& waiting) { waiting.swap(latest); });
        }

        /// Has the callback called although there may be no value.
        void wake() const
        {
            m_state->announce([](auto& /*waiting*/) {});
        }

    private:
        friend class Mailbox;
        explicit Sender(std::shared_ptr<State> state)
            : m_state(std::move(state))
        {
        }

        std::shared_ptr<State> m_state;
    };

    /// @param receiver  Outlives the mailbox.
    /// @param onMail    Called in the receiver's event loop some time after values were sent; perhaps once for several,
    ///                  perhaps after take() has given them away already.
    Mailbox(QObject& receiver, std::function<void()> onMail)
        : m_state(std::make_shared<State>(&receiver, std::move(onMail)))
    {
    }
    ~Mailbox()
    {
        std::vector<T> dropped; // destroyed once the lock is free: it may own who is just sending
        const std::scoped_lock lock(m_state->mutex);
        m_state->receiver = nullptr;
        dropped.swap(m_state->waiting);
    }
    Mailbox(const Mailbox&) = delete;
    Mailbox& operator=(const Mailbox&) = delete;

    [[nodiscard]] Sender sender() const { return Sender(m_state); }

    /// Takes what was sent, oldest first; perhaps nothing.
    [[nodiscard]] std::vector<T> take()
    {
        const std::scoped_lock lock(m_state->mutex);
        return std::exchange(m_state->waiting, {});
    }

private:
    struct State : std::enable_shared_from_this<State> {
        State(QObject* receiverObject, std::function<void()> callback)
            : receiver(receiverObject)
            , onMail(std::move(callback))
        {
        }

        template <typename Change> void announce(const Change& change)
        {
            const std::scoped_lock lock(mutex);
            if (receiver == nullptr)
                return;
            change(waiting);
            if (std::exchange(isAnnounced, true))
                return;
            QMetaObject::invokeMethod( // the receiver can't go meanwhile: closing waits for the lock
                receiver, [state = this->shared_from_this()] { state->tell(); }, Qt::QueuedConnection);
        }

        void tell()
        {
            {
                const std::scoped_lock lock(mutex);
                isAnnounced = false;
                if (receiver == nullptr)
                    return;
            }
            onMail(); // may delete the receiver, and the mailbox with it
        }

        std::mutex mutex;  ///< guards what follows
        QObject* receiver; ///< null once the mailbox is gone
        std::vector<T> waiting;
        bool isAnnounced = false;           ///< whether tell() waits in the event loop
        const std::function<void()> onMail; ///< the receiver's thread's
    };

    std::shared_ptr<State> m_state;
};

} // namespace quillbox
