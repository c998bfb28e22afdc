#include "Views/FirstUseCard.h"

#include "Views/Controls/Card.h"
#include "Views/Controls/FlatButton.h"
#include "Views/Controls/SymbolLabel.h"
#include "Views/Controls/TextLabel.h"

#include <QDir>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace quillbox {
namespace {

constexpr int frameInset = 10; // of the frame around the lines

/// Adds one line: a symbol, and beside it a text that is set later.
TextLabel* addLine(QVBoxLayout* column, Symbol symbol, QWidget* parent)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(Theme::spacing);
    row->addWidget(new SymbolLabel(symbol, Role::Accent, Theme::symbolSize, parent), 0, Qt::AlignTop);
    auto* text = new TextLabel(QString(), TextStyle::Caption, Role::Primary, TextLabel::Overflow::Wrap, parent);
    row->addWidget(text, 1, Qt::AlignVCenter);
    column->addLayout(row);
    return text;
}

/// A path that goes on in the next line as late as it can, instead of after the first slash.
QString unbroken(QString path)
{
    return path.replace(QLatin1Char('/'), QStringLiteral("/\u2060"));
}

} // namespace

FirstUseCard::FirstUseCard(QWidget* parent)
    : QWidget(parent)
{
    auto* card = new Card(tr("How it works"), this);
    auto* lines = new QVBoxLayout(card->body());
    lines->setContentsMargins(frameInset, frameInset, frameInset, frameInset);
    lines->setSpacing(8);
    m_icon = addLine(lines, Symbol::RectangleDashedBadgeRecord, card->body());
    m_keys = addLine(lines, Symbol::Keyboard, card->body());
    m_clips = addLine(lines, Symbol::PhotoStack, card->body());
    auto* button = new FlatButton(FlatButton::Kind::Small, tr("Got it"), std::nullopt, card->body());
    connect(button, &FlatButton::clicked, this, &FirstUseCard::understood);
    lines->addWidget(button, 0, Qt::AlignRight);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Theme::margin, Theme::spacing, Theme::margin, Theme::margin - 2);
    column->addWidget(card);
    setFacts({});
}

void FirstUseCard::setFacts(const Facts& facts)
{
    m_icon->setText(facts.hasTray
            ? tr("Quillbox waits in the tray of your desktop. Click its icon to open this panel.")
            : tr("This desktop has no tray for an icon. Start Quillbox again to open this panel."));
    m_keys->setText(facts.keys.isEmpty()
            ? tr("Press %1 (⌘⇧2) in any program and drag out a region to record it.").arg(facts.combination)
            : facts.keys);
    m_clips->setText(
        tr("Clips are copied, ready to paste, and saved in %1.").arg(unbroken(pathFromHome(facts.clipsFolder))));
}

QString pathFromHome(const QString& path)
{
    const auto home = QDir::cleanPath(QDir::homePath());
    const auto clean = QDir::cleanPath(path);
    if (clean == home)
        return QStringLiteral("~");
    return QDir::toNativeSeparators(
        clean.startsWith(home + QLatin1Char('/')) ? QLatin1Char('~') + clean.mid(home.size()) : clean);
}

} // namespace quillbox

#include "moc_FirstUseCard.cpp"
