#pragma once

#include <QObject>
#include <QString>

namespace quillbox {

/// Whether this user still has to be told how Quillbox is used. What has been told is remembered from run to run in a
/// file beside the history; where that can't be written, only within this run, and nobody is troubled with it. Thread:
/// main.
class FirstUse : public QObject {
    Q_OBJECT

public:
    /// "first-use" in the folder of the history.
    [[nodiscard]] static QString defaultPath();

    /// Reads what is remembered. A file that says anything unknown says that everything has been told.
    explicit FirstUse(QString path = defaultPath(), QObject* parent = nullptr);

    /// Nothing was remembered when this object was made: Quillbox has never been started before.
    [[nodiscard]] bool isFirstStart() const { return m_isFirstStart; }
    /// The introduction is to be shown: end() has not been called, in this run or an earlier one.
    [[nodiscard]] bool isIntroducing() const { return m_isIntroducing; }

    /// Remembers that Quillbox has been started, so that no later start is the first.
    void begin();
    /// The introduction has been read, or is not needed any more. A second call does nothing.
    void end();

Q_SIGNALS:
    void ended();

private:
    void remember(const QByteArray& state) const;

    QString m_path;
    bool m_isFirstStart;
    bool m_isIntroducing;
};

} // namespace quillbox
