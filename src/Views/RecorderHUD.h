#pragma once

#include "App/Updates/UpdaterController.h"
#include "App/Workflow/CurrentCoordinator.h"
#include "PostCapture/ClipEntry.h"
#include "Views/History/ClipActions.h"

#include <QWidget>

#include <chrono>

class QTimer;

namespace quillbox {

class ClipResult;
class FlatButton;
class NoticeLine;
class ProgressBar;
class SegmentedPicker;
class Switch;
class SymbolLabel;
class TextLabel;
class TimeLabel;

/// The upper part of the panel: what to record for, how it stands, and the buttons. Holds no state: it shows what the
/// coordinator and the updater say, whenever they announce a change. Thread: main.
class RecorderHUD : public QWidget {
    Q_OBJECT

public:
    /// A clip that is made faster shows no progress.
    static constexpr std::chrono::milliseconds usualProgressDelay{500};

    /// @param progressDelay  How long a clip has been in the making when its progress is shown.
    /// @pre Both outlive the view.
    RecorderHUD(CurrentCoordinator& coordinator, UpdaterController& updater, QWidget* parent = nullptr,
        std::chrono::milliseconds progressDelay = usualProgressDelay);

    /// Gives the keyboard to the button that records and stops.
    void focusMainButton();
    /// A sentence below the status, such as why the shortcut does not work; none when empty. Not shown while a flow is
    /// under way, as there is nothing to begin then.
    void setNotice(const QString& notice);
    /// Whether the clip is not on the clipboard yet, which is told elsewhere.
    void setClipPending(bool isPending);

Q_SIGNALS:
    void settingsRequested();
    void quitRequested();
    /// The user wants to say where the clip that could not be saved goes.
    void saveElsewhereRequested();
    /// The user wants something done with the clip that was made.
    void clipRequested(quillbox::ClipAction action, const quillbox::ClipEntry& entry);

private:
    QWidget* makeHeader();
    QWidget* makePresetPicker();
    QWidget* makeStatusRow();
    QWidget* makeMainButton();
    QWidget* makeFooter();
    void showPhase();
    void showNotice();
    void showPreset();
    void showPrecision();
    void awaitProgress();
    void revealProgress();
    void showProgress();
    void showUpdater();

    CurrentCoordinator& m_coordinator;
    UpdaterController& m_updater;
    SegmentedPicker* m_presets = nullptr;
    TextLabel* m_subtitle = nullptr;
    Switch* m_everyChange = nullptr;
    SymbolLabel* m_statusSymbol = nullptr;
    TextLabel* m_statusText = nullptr;
    NoticeLine* m_notice = nullptr;
    QString m_noticeText;
    ClipResult* m_result = nullptr;
    TimeLabel* m_time = nullptr;
    ProgressBar* m_progress = nullptr;
    FlatButton* m_finishButton = nullptr;
    QTimer* m_progressDelay;
    FlatButton* m_mainButton = nullptr;
    FlatButton* m_updateButton = nullptr;
};

} // namespace quillbox
