#include "Views/History/HistoryNotice.h"

#include "Views/Controls/FlatButton.h"
#include "Views/Controls/TextLabel.h"

#include <QHBoxLayout>

#include <utility>

namespace quillbox {

HistoryNotice::HistoryNotice(QWidget* parent)
    : QWidget(parent)
    , m_text(new TextLabel(QString(), TextStyle::Caption, Role::Primary, TextLabel::Overflow::Wrap, this))
    , m_button(new FlatButton(FlatButton::Kind::Small, tr("Undo"), std::nullopt, this))
    , m_cancel(new FlatButton(FlatButton::Kind::Small, tr("Cancel"), std::nullopt, this))
    , m_end(new QTimer(this))
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Theme::margin, 2, Theme::margin, 2);
    row->setSpacing(Theme::tightSpacing);
    row->addWidget(m_text, 1);
    row->addWidget(m_button);
    row->addWidget(m_cancel);
    m_end->setSingleShot(true);
    m_end->setInterval(lifetime);
    connect(m_end, &QTimer::timeout, this, &HistoryNotice::dismiss);
    connect(m_cancel, &FlatButton::clicked, this, &HistoryNotice::dismiss);
    connect(m_button, &FlatButton::clicked, this, [this] {
        const auto action = std::exchange(m_action, nullptr);
        dismiss();
        if (action)
            action();
    });
    hide();
}

void HistoryNotice::tell(const QString& text)
{
    say(text, QString(), nullptr);
    m_cancel->hide();
    m_end->start();
}

void HistoryNotice::offerUndo(const QString& text, std::function<void()> undo)
{
    say(text, tr("Undo"), std::move(undo));
    m_cancel->hide();
    m_end->start();
}

void HistoryNotice::ask(const QString& question, const QString& label, std::function<void()> carryOut)
{
    say(question, label, std::move(carryOut));
    m_cancel->show();
    m_end->stop();
    m_cancel->setFocus(Qt::OtherFocusReason); // Return does no harm
}

void HistoryNotice::say(const QString& text, const QString& label, std::function<void()> action)
{
    m_text->setText(text);
    if (action)
        m_button->setLabel(label, std::nullopt);
    m_button->setVisible(action != nullptr);
    m_action = std::move(action);
    show();
}

void HistoryNotice::dismiss()
{
    m_end->stop();
    m_action = nullptr;
    hide();
}

} // namespace quillbox

#include "moc_HistoryNotice.cpp"
