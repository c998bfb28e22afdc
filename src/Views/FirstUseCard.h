#pragma once

#include <QString>
#include <QWidget>

namespace quillbox {

class TextLabel;

/// What a newcomer has to know, in three lines: where the icon is, which keys, where clips go. Thread: main.
class FirstUseCard : public QWidget {
    Q_OBJECT

public:
    struct Facts {
        bool hasTray = true;
        QString combination = QStringLiteral("Super + Shift + 2"); ///< as people write it
        QString keys = {};        ///< what to say of the keys; empty where the combination works
        QString clipsFolder = {}; ///< an absolute path
    };

    explicit FirstUseCard(QWidget* parent = nullptr);

    void setFacts(const Facts& facts);

Q_SIGNALS:
    /// Its button was pressed.
    void understood();

private:
    TextLabel* m_icon;
    TextLabel* m_keys;
    TextLabel* m_clips;
};

/// `path` as people write it: "~" for the home folder.
[[nodiscard]] QString pathFromHome(const QString& path);

} // namespace quillbox
