#include "Views/Recording/NoticeLine.h"

#include "Views/Controls/SymbolLabel.h"
#include "Views/Controls/TextLabel.h"

#include <QHBoxLayout>

namespace quillbox {

NoticeLine::NoticeLine(QWidget* parent)
    : QWidget(parent)
    , m_text(new TextLabel(QString(), TextStyle::Caption, Role::Primary, TextLabel::Overflow::Wrap, this))
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, Theme::tightSpacing);
    row->setSpacing(Theme::tightSpacing);
    row->addWidget(
        new SymbolLabel(Symbol::ExclamationmarkTriangleFill, Role::Amber, Theme::symbolSize, this), 0, Qt::AlignTop);
    row->addWidget(m_text, 1, Qt::AlignVCenter);
    hide();
}

void NoticeLine::setText(const QString& text)
{
    m_text->setText(text);
    setVisible(!text.isEmpty());
}

} // namespace quillbox

#include "moc_NoticeLine.cpp"
