#include "PostCapture/HistoryFile.h"

#include <nlohmann/json.hpp>

#include <QRegularExpression>
#include <QTimeZone>

#include <stdexcept>
#include <string>
#include <utility>

namespace quillbox {
namespace {

using JSON = nlohmann::ordered_json;

/// Something in the file is not as the format demands.
class Unreadable : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

std::string textOfDate(const QDateTime& date)
{
    return date.toUTC().toString(QStringLiteral("yyyy-MM-dd'T'HH:mm:ss'Z'")).toStdString();
}

/// Qt's own parsers take more forms than this one, or read it as local time.
QDateTime dateOf(const QString& text)
{
    static const QRegularExpression form(
        QStringLiteral(R"(\A([0-9]{4})-([0-9]{2})-([0-9]{2})T([0-9]{2}):([0-9]{2}):([0-9]{2})Z\z)"));
    const auto match = form.match(text);
    const auto number = [&match](int group) {
        return match.captured(group).toInt();
    };
    const QDate day(number(1), number(2), number(3));
    const QTime time(number(4), number(5), number(6));
    if (!match.hasMatch() || !day.isValid() || !time.isValid())
        throw Unreadable("a date is not like 2026-01-31T10:00:00Z");
    return QDateTime(day, time, QTimeZone::utc()).toUTC();
}

QUuid idOf(const QString& text)
{
    static const QRegularExpression form(QStringLiteral(R"(\A[0-9A-Fa-f]{8}(-[0-9A-Fa-f]{4}){3}-[0-9A-Fa-f]{12}\z)"));
    if (!form.match(text).hasMatch())
        throw Unreadable("an id is not a UUID");
    return QUuid::fromString(text);
}

QString stringOf(const JSON& value)
{
    if (!value.is_string())
        throw Unreadable("a value is not a string");
    return QString::fromStdString(value.get_ref<const std::string&>());
}

std::int64_t integerOf(const JSON& value)
{
    constexpr auto largest = std::uint64_t{std::numeric_limits<std::int64_t>::max()};
    if (!value.is_number_integer() || (value.is_number_unsigned() && value.get<std::uint64_t>() > largest))
        throw Unreadable("a value is not a 64-bit integer");
    return value.get<std::int64_t>();
}

double numberOf(const JSON& value)
{
    if (!value.is_number())
        throw Unreadable("a value is not a number");
    return value.get<double>();
}

const JSON& required(const JSON& object, const char* key)
{
    const auto found = object.find(key);
    if (found == object.end())
        throw Unreadable("a key is missing");
    return *found;
}

template <typename Read>
auto optional(const JSON& object, const char* key, Read read) -> std::optional<decltype(read(object))>
{
    const auto found = object.find(key);
    if (found == object.end() || found->is_null())
        return std::nullopt;
    return read(*found);
}

ClipEntry entryOf(const JSON& object)
{
    if (!object.is_object())
        throw Unreadable("an element is not an object");
    ClipEntry entry;
    entry.id = idOf(stringOf(required(object, "id")));
    entry.date = dateOf(stringOf(required(object, "date")));
    entry.format = stringOf(required(object, "format"));
    entry.preset = stringOf(required(object, "preset"));
    entry.outputPath = optional(object, "outputPath", stringOf);
    entry.byteCount = optional(object, "byteCount", integerOf);
    entry.durationSeconds = optional(object, "durationSeconds", numberOf);
    entry.width = optional(object, "width", integerOf);
    entry.height = optional(object, "height", integerOf);
    return entry;
}

JSON objectOf(const ClipEntry& entry)
{
    JSON object{
        {"id", entry.id.toString(QUuid::WithoutBraces).toUpper().toStdString()},
        {"date", textOfDate(entry.date)},
        {"format", entry.format.toStdString()},
        {"preset", entry.preset.toStdString()},
    };
    if (entry.outputPath)
        object["outputPath"] = entry.outputPath->toStdString();
    if (entry.byteCount)
        object["byteCount"] = *entry.byteCount;
    if (entry.durationSeconds)
        object["durationSeconds"] = *entry.durationSeconds;
    if (entry.width)
        object["width"] = *entry.width;
    if (entry.height)
        object["height"] = *entry.height;
    return object;
}

} // namespace

QByteArray HistoryFile::encode(std::span<const ClipEntry> entries)
{
    auto list = JSON::array();
    for (const ClipEntry& entry : entries)
        list.push_back(objectOf(entry));
    return QByteArray::fromStdString(list.dump(2)) + '\n';
}

std::optional<std::vector<ClipEntry>> HistoryFile::decode(const QByteArray& bytes)
{
    const auto document = JSON::parse(bytes.begin(), bytes.end(), nullptr, /*allow_exceptions=*/false);
    if (!document.is_array()) // also when it is not JSON at all
        return std::nullopt;
    std::vector<ClipEntry> entries;
    try {
        for (const JSON& element : document)
            entries.push_back(entryOf(element));
    } catch (const Unreadable&) {
        return std::nullopt; // one bad entry condemns the file
    }
    return entries;
}

} // namespace quillbox
