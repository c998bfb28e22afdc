#pragma once

#include <QObject>

#include <memory>
#include <string_view>

namespace quillbox {

/// A request to the program that owns a selection of the X server, of which only the end is of interest. Thread: main.
/// @see Inter-Client Communication Conventions Manual, "Requesting a Selection"
class SelectionRequest : public QObject {
    Q_OBJECT

public:
    /// Asks the owner of `selection` to convert it to `target`.
    /// @return null where nobody owns it, or on another window system.
    [[nodiscard]] static std::unique_ptr<SelectionRequest> ask(std::string_view selection, std::string_view target);
    ~SelectionRequest() override;

Q_SIGNALS:
    /// The owner has done it or refuses to. Never comes if it does not answer.
    void answered();

private:
    struct Connection;

    explicit SelectionRequest(std::unique_ptr<Connection> connection);
    void takeEvents();

    std::unique_ptr<Connection> m_connection;
};

} // namespace quillbox
