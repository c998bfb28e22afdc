#pragma once

#include "Platform/FileWorker.h"
#include "PostCapture/HistoryStore.h"
#include "support/SystemCalls.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTimeZone>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace quillbox::test {

inline ClipEntry clip(int number)
{
    return {.date = {QDate(2026, 1, 1), QTime(0, 0, number), QTimeZone::utc()},
        .format = QStringLiteral("GIF"),
        .preset = QStringLiteral("GitHub"),
        .outputPath = QStringLiteral("/clips/%1.gif").arg(number)};
}

inline std::vector<ClipEntry> clips(int count)
{
    std::vector<ClipEntry> result;
    for (int i = 0; i < count; ++i)
        result.push_back(clip(i));
    return result;
}

inline std::vector<QString> paths(const std::vector<ClipEntry>& entries)
{
    std::vector<QString> result;
    for (const ClipEntry& entry : entries)
        result.push_back(*entry.outputPath);
    return result;
}

/// The list, once the disk has it, however long it takes.
class Store : public HistoryStore {
public:
    using HistoryStore::HistoryStore;

    void record(ClipEntry entry)
    {
        HistoryStore::record(std::move(entry));
        finish();
    }
    void clear()
    {
        HistoryStore::clear();
        finish();
    }
    void remove(const QUuid& id)
    {
        HistoryStore::remove(id);
        finish();
    }
    void restore(const std::vector<ClipEntry>& older)
    {
        HistoryStore::restore(older);
        finish();
    }

    void finish()
    {
        EXPECT_TRUE(FileWorker::finish(std::chrono::minutes(1)));
        QCoreApplication::sendPostedEvents(this); // where it took long, what is on file comes by one
    }
};

class HistoryStoreTest : public testing::Test {
protected:
    void TearDown() override
    {
        ASSERT_TRUE(FileWorker::finish(std::chrono::minutes(1)));
        support::systemCalls() = {};
    }

    [[nodiscard]] std::filesystem::path folder() const { return m_folder.path(); }
    [[nodiscard]] std::filesystem::path file() const { return m_folder.path() / "history.json"; }
    [[nodiscard]] std::filesystem::path corruptFile() const { return m_folder.path() / "history.corrupt.json"; }
    [[nodiscard]] QString url() const { return QString::fromStdString(file().string()); }

    void write(const QByteArray& bytes) const { std::ofstream(file()) << bytes.toStdString(); }
    [[nodiscard]] QByteArray written() const { return QByteArray::fromStdString(support::readFile(file())); }

private:
    int m_argumentCount = 1;
    std::string m_name = "test";
    char* m_arguments[2]{m_name.data(), nullptr};
    QCoreApplication m_application{m_argumentCount, m_arguments}; // has the event loop
    support::TemporaryFolder m_folder;
};

} // namespace quillbox::test
