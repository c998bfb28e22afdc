#include "App/Desktop/WindowPlaces/KWinPlacement.h"

#include "App/Desktop/WindowPlaces/KWinBus.h"
#include "Views/PanelPlacement.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStandardPaths>

namespace quillbox {
namespace {

/// Places as PanelPlacement does, beside where the pointer is when the script is run. Begins with its parameters.
/// Plasma 5 says "client" where Plasma 6 says "window".
constexpr auto placingScript = R"(
const pointer = {x: workspace.cursorPos.x, y: workspace.cursorPos.y};

function within(wished, length, first, last) {
    return Math.max(first, Math.min(wished, last - length));
}

function put(window, x, y) {
    const size = window.frameGeometry;
    window.frameGeometry = {x: Math.round(x), y: Math.round(y), width: size.width, height: size.height};
}

function place(window) {
    const size = window.frameGeometry;
    const x = pointer.x - size.width / 2;
    put(window, x, pointer.y - size.height / 2); // so that the area is that of the pointer's screen
    const area = workspace.clientArea(KWin.MaximizeArea, window);
    const isUpper = pointer.y < area.y + area.height / 2;
    const y = isUpper ? pointer.y + gap : pointer.y - gap - size.height;
    put(window, within(x, size.width, area.x + gap, area.x + area.width - gap),
        within(y, size.height, area.y + gap, area.y + area.height - gap));
}

function follow(window) {
    let isMoved = false; // by the user
    let width = 0;
    let height = 0; // of the window when it was placed
    function placeAnew() {
        const now = window.frameGeometry;
        isMoved = isMoved || window.move;
        if (isMoved || (now.width == width && now.height == height))
            return;
        width = now.width; // first: to place it is a change of its own
        height = now.height;
        place(window);
    }
    window.frameGeometryChanged.connect(placeAnew);
    placeAnew();
}

const added = workspace.windowAdded === undefined ? workspace.clientAdded : workspace.windowAdded;
let isFound = false;

function note(window) {
    if (!isFound && window.pid == process && window.caption == title) {
        isFound = true;
        added.disconnect(note);
        follow(window);
    }
}

added.connect(note);
for (const window of workspace.windowList === undefined ? workspace.clientList() : workspace.windowList())
    note(window); // where it did not wait for this
)";

/// @param arguments  Of the main object of scripts.
KWinBus::Question question(const QString& method, const QVariantList& arguments)
{
    return {.path = QStringLiteral("/Scripting"),
        .interface = QStringLiteral("org.kde.kwin.Scripting"),
        .method = method,
        .arguments = arguments};
}

QByteArray scriptFor(const QString& title)
{
    const QByteArray inQuotes = QJsonDocument(QJsonArray{title}).toJson(QJsonDocument::Compact); // ["…"]
    return "const title = " + inQuotes + "[0], process = " + QByteArray::number(QCoreApplication::applicationPid())
        + ", gap = " + QByteArray::number(PanelPlacement::gap) + ";\n" + placingScript;
}

} // namespace

KWinPlacement::~KWinPlacement()
{
    unload();
}

void KWinPlacement::begin(const QString& title)
{
    unload(); // what was there before; KWin gets rid of it later
    m_name = QStringLiteral(QUILLBOX_APP_ID ".panel%1-%2").arg(QCoreApplication::applicationPid()).arg(++m_count);
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    m_script = std::make_unique<QTemporaryFile>(folder + QStringLiteral("/quillbox-panel-XXXXXX.js"));
    const QByteArray text = scriptFor(title);
    if (m_script->open() && m_script->write(text) == text.size() && m_script->flush())
        load();
    else
        becomeReady();
}

void KWinPlacement::load()
{
    KWinBus::ask(*this, question(QStringLiteral("loadScript"), {m_script->fileName(), m_name}), patience,
        [this](const QDBusMessage& reply) {
            const QString number = reply.arguments().value(0).toString();
            if (reply.signature() == QLatin1String("i") && number.toInt() >= 0)
                run(QStringLiteral("/Scripting/Script") + number, QLatin1Char('/') + number); // Plasma 6, Plasma 5
            else
                becomeReady();
        });
}

/// @param otherPath  Where else the script may be found; empty: nowhere.
void KWinPlacement::run(const QString& path, const QString& otherPath)
{
    const KWinBus::Question asked{
        .path = path, .interface = QStringLiteral("org.kde.kwin.Script"), .method = QStringLiteral("run")};
    KWinBus::ask(*this, asked, patience, [this, otherPath](const QDBusMessage& reply) {
        if (reply.type() != QDBusMessage::ReplyMessage && !otherPath.isEmpty()) {
            run(otherPath, QString());
            return;
        }
        m_script.reset();
        becomeReady(); // it answers once the script has run
    });
}

void KWinPlacement::unload()
{
    if (!m_name.isEmpty())
        KWinBus::ask(*this, question(QStringLiteral("unloadScript"), {m_name}), patience);
}

} // namespace quillbox

#include "moc_KWinPlacement.cpp"
