#pragma once

#include "ViewsFixture.h"

#include "Views/Panel.h"

#include <QDir>
#include <QRect>
#include <QString>

#include <functional>

namespace quillbox::test {

/// Saves views as pictures, and complains of texts that are cut off.
class ScreenshotWriter {
public:
    /// @param theme  A part of the files' names, which are NAME-THEME-SCALE.png.
    ScreenshotWriter(const QString& folder, QString theme);

    void take(QWidget& widget, const QString& name);
    /// Prints what is wrong with the view of that name.
    void complain(const QString& name, const QString& complaint);
    /// Nothing was wrong.
    [[nodiscard]] bool clean() const { return m_clean; }

private:
    QDir m_folder;
    QString m_theme;
    bool m_clean = true;
};

using Prepare = std::function<void(ViewsFixture&, Panel&)>;

// States of the panel.
void nothing(ViewsFixture& fixture, Panel& panel);
/// A clip whose making takes a while.
void processing(ViewsFixture& fixture, Panel& panel);
/// Its progress, once that is shown: for a panel that is open.
void partlyDone(ViewsFixture& fixture, Panel& panel);
/// A clip that lacks pictures.
void pictureLoss(ViewsFixture& fixture, Panel& panel);
void notSaved(ViewsFixture& fixture, Panel& panel);
void firstUse(ViewsFixture& fixture, Panel& panel);

/// Puts clips of all kinds into the history.
void fill(HistoryStore& history, int clips);

/// Opens the panel in a state, and hands it over.
/// @param open  How it is opened.
void withPanel(const Prepare& prepare, const std::function<void(Panel&)>& open, const Prepare& whenOpen);
/// Opens the panel on a screen with plenty of room, and takes its picture.
void takePanel(
    ScreenshotWriter& writer, const QString& name, const Prepare& prepare, const Prepare& whenOpen = &nothing);

} // namespace quillbox::test
