#include "Views/Controls/SwitchLine.h"

#include "Views/Controls/Card.h"
#include "Views/Controls/Switch.h"
#include "Views/Theme.h"

#include <QAction>
#include <QVBoxLayout>

namespace quillbox {

SwitchLine::SwitchLine(QWidget* parent)
    : QWidget(parent)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(new Divider(this));
    hide();
}

void SwitchLine::setAction(QAction* action)
{
    if (action != nullptr && m_switch == nullptr) {
        m_switch = new Switch(action->text(), this);
        m_switch->setChecked(action->isChecked());
        connect(m_switch, &Switch::toggled, action, &QAction::setChecked);
        connect(action, &QAction::toggled, m_switch, &Switch::setChecked);
        auto* row = new QHBoxLayout;
        row->setContentsMargins(Theme::margin, Theme::tightSpacing, Theme::margin, Theme::tightSpacing);
        row->addWidget(m_switch, 0, Qt::AlignLeft);
        qobject_cast<QVBoxLayout*>(layout())->addLayout(row);
    }
    setVisible(action != nullptr);
}

} // namespace quillbox

#include "moc_SwitchLine.cpp"
