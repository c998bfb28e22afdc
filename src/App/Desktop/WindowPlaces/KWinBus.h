#pragma once

#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QVariantList>

#include <chrono>
#include <functional>

namespace quillbox {

/// Questions to KWin over the session bus. Stateless; thread: main.
namespace KWinBus {

struct Question {
    QString path;
    QString interface;
    QString method;
    QVariantList arguments{};
};

/// Sends a question. Nothing is started for it.
/// @param take  Gets the answer, also if that is an error, unless `asker` has gone; may be empty.
void ask(QObject& asker, const Question& question, std::chrono::milliseconds patience,
    const std::function<void(const QDBusMessage&)>& take = {});

} // namespace KWinBus
} // namespace quillbox
