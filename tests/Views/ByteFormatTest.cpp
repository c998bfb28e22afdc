#include "Views/ByteFormat.h"
#include "support/QtTests.h"

#include <QLocale>
#include <QTest>

#include <array>
#include <cstdio>
#include <limits>

namespace quillbox {
namespace {

/// What the C library prints; unlike QString::asprintf, which rounds in its own way.
QString printed(const char* format, double value)
{
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), format, value);
    return QString::fromLatin1(text.data());
}

class ByteFormatTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void writesBytesKilobytesAndMegabytes_data();
    void writesBytesKilobytesAndMegabytes();
    void agreesWithPrintfNearEveryTie();
    void usesAPointInEveryLanguage();
};

void ByteFormatTest::writesBytesKilobytesAndMegabytes_data()
{
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<QString>("text");
    const auto row = [](qint64 bytes, const char* text) {
        QTest::addRow("%lld", static_cast<long long>(bytes)) << bytes << QString::fromLatin1(text);
    };
    row(0, "0 B");
    row(-1, "-1 B");
    row(-5'000'000, "-5000000 B");
    row(999, "999 B");
    row(1000, "1 KB");
    row(1499, "1 KB");
    row(1500, "2 KB");
    row(2500, "2 KB"); // half way: to the even one
    row(2501, "3 KB");
    row(999'499, "999 KB");
    row(999'999, "1000 KB");
    row(1'000'000, "1.0 MB");
    row(1'049'999, "1.0 MB");
    row(1'250'000, "1.2 MB"); // half way: to the even one
    row(1'750'000, "1.8 MB");
    row(2'000'000'000, "2000.0 MB");
    row(std::numeric_limits<qint64>::min(), "-9223372036854775808 B");
}

void ByteFormatTest::writesBytesKilobytesAndMegabytes()
{
    QFETCH(const qint64, bytes);
    QTEST(ByteFormat::shortText(bytes), "text");
}

void ByteFormatTest::agreesWithPrintfNearEveryTie()
{
    for (std::int64_t tie = 1500; tie < 1'000'000; tie += 1000)
        for (const std::int64_t bytes : {tie - 1, tie, tie + 1})
            QCOMPARE(ByteFormat::shortText(bytes), printed("%.0f KB", static_cast<double>(bytes) / 1000.0));
    for (std::int64_t tie = 1'050'000; tie < 20'000'000; tie += 100'000)
        for (const std::int64_t bytes : {tie - 1, tie, tie + 1})
            QCOMPARE(ByteFormat::shortText(bytes), printed("%.1f MB", static_cast<double>(bytes) / 1e6));
}

void ByteFormatTest::usesAPointInEveryLanguage()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    const QString text = ByteFormat::shortText(1'234'567);
    QLocale::setDefault(before);
    QCOMPARE(text, QStringLiteral("1.2 MB"));
}

const test::Registration<ByteFormatTest> registeredByteFormatTest("ByteFormat");

} // namespace
} // namespace quillbox

#include "ByteFormatTest.moc"
