#pragma once

#include "App/Updates/UpdaterController.h"
#include "App/Workflow/CurrentCoordinator.h"
#include "PostCapture/FileReveal.h"
#include "PostCapture/HistoryStore.h"
#include "Views/FirstUseCard.h"

#include <QRect>
#include <QWidget>

#include <chrono>
#include <functional>
#include <optional>

class QAction;

namespace quillbox {

class CutOffOffer;
class HistoryPanel;
class RecorderHUD;
class Scroller;
class SwitchLine;

/// What the tray icon opens: the recorder above the history. On a screen too small for it the history becomes shorter,
/// and what is still too high is scrolled. Closes when another window becomes active, on Escape, and
/// before a region is selected, so that it is in no clip. Hidden until opened. Thread: main.
class Panel : public QWidget {
    Q_OBJECT

public:
    /// How the panel's outline is drawn when it has no window frame.
    enum class Corners {
        Rounded, ///< needs a compositing manager
        Square,
    };
    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    /// A click on the tray icon that closed the panel arrives within this time.
    static constexpr std::chrono::milliseconds justNow{400};

    /// @param clock          What wasJustClosed() goes by.
    /// @param progressDelay  How long a clip has been in the making when its progress is shown; none for the usual
    /// time.
    /// @pre All four outlive the panel.
    Panel(CurrentCoordinator& coordinator, UpdaterController& updater, HistoryStore& store, FileReveal& fileReveal,
        Clock clock = &std::chrono::steady_clock::now,
        std::optional<std::chrono::milliseconds> progressDelay = std::nullopt);

    /// Opens the panel next to the tray icon, wholly on the screen, and takes the keyboard.
    /// @param anchor             The icon, global coordinates; empty where the desktop does not tell.
    /// @param availableGeometry  Of the icon's screen, or of the primary one.
    void openNear(const QRect& anchor, const QRect& availableGeometry);
    /// Opens it as a titled window, for desktops without a tray. It then stays until it is closed.
    void openAsWindow();

    /// Whether the panel was closed a moment ago because another window became active: a click on the tray icon that
    /// comes now was meant to close it.
    [[nodiscard]] bool wasJustClosed() const;

    /// Square where windows can't be translucent, as on X11 without a compositing manager. Takes effect at the next
    /// opening. Rounded on Wayland and square elsewhere unless told otherwise.
    void setCorners(Corners corners) { m_corners = corners; }

    /// A sentence below the status, such as why the shortcut does not work; none when empty. Not shown while a flow is
    /// under way.
    void setNotice(const QString& notice);

    /// A switch below everything for what a menu has elsewhere: see SwitchLine.
    void setSwitch(QAction* action);
    /// Whether a line says that the clip is not on the clipboard, and offers to put it there.
    void setClipPending(bool isPending);
    /// Tells of recordings that were cut off. To be called once. @pre `offer` outlives the panel.
    void showCutOff(CutOffOffer& offer);
    /// What newcomers are told, above everything; nothing is told without it.
    void setIntroduction(const std::optional<FirstUseCard::Facts>& facts);

    void setVisible(bool visible) override;

Q_SIGNALS:
    void settingsRequested();
    void quitRequested();
    /// The user wants to say where the clip that could not be saved goes.
    void saveElsewhereRequested();
    /// The user clicked to have the clip put on the clipboard.
    void copyRequested();
    /// The introduction's button was pressed.
    void introductionUnderstood();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum class Form { Popup, Window };

    Scroller* makeColumn();
    QWidget* makeClipLine();
    QWidget* makeIntroductionArea();
    void becomeA(Form form);
    [[nodiscard]] QSize fittingSize();
    void fit();
    void present();

    Clock m_clock;
    Form m_form = Form::Popup;
    Corners m_corners;
    bool m_rounded = false; // as it is shown now
    bool m_hiding = false;  // on purpose
    QRect m_anchor;
    QRect m_available;
    std::chrono::steady_clock::time_point m_deactivated;
    FirstUseCard* m_introduction = nullptr; // made when it is first needed
    QWidget* m_contents;
    QWidget* m_introductionArea;
    RecorderHUD* m_hud;
    QWidget* m_clipLine;
    HistoryPanel* m_history;
    SwitchLine* m_switch;
    Scroller* m_scroller;
};

} // namespace quillbox
