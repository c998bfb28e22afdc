#pragma once

#include <QString>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <functional>

namespace quillbox {

class FlatButton;
class TextLabel;

/// A line about the history: what was done, which can be undone for a while, or what is about to be done, which is
/// asked first. Hidden while there is nothing to say. Thread: main.
class HistoryNotice : public QWidget {
    Q_OBJECT

public:
    /// How long it says what was done.
    static constexpr std::chrono::seconds lifetime{10};

    explicit HistoryNotice(QWidget* parent = nullptr);

    /// Says something for a while.
    void tell(const QString& text);
    /// Says what was done, with a button that undoes it.
    void offerUndo(const QString& text, std::function<void()> undo);
    /// Asks until it is answered, by a button that says what will be done or by "Cancel".
    void ask(const QString& question, const QString& label, std::function<void()> carryOut);
    void dismiss();

private:
    void say(const QString& text, const QString& label, std::function<void()> action);

    TextLabel* m_text;
    FlatButton* m_button;
    FlatButton* m_cancel;
    QTimer* m_end;
    std::function<void()> m_action;
};

} // namespace quillbox
