#include "Views/ClipSaveDialog.h"

#include <QDir>

namespace quillbox {

ClipSaveDialog::ClipSaveDialog()
{
    setWindowTitle(tr("Save Clip"));
    setAttribute(Qt::WA_QuitOnClose, false); // the tray icon stays
    setAcceptMode(AcceptSave);
    setFileMode(AnyFile);
    setDefaultSuffix(QStringLiteral("gif"));
    setNameFilter(tr("GIF (*.gif)"));
    setDirectory(QDir::home());
}

void ClipSaveDialog::ask(const QString& name)
{
    if (!isVisible()) {
        selectFile(name);
        open();
    }
    raise();
    activateWindow();
}

} // namespace quillbox

#include "moc_ClipSaveDialog.cpp"
