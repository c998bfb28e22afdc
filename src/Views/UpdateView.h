#pragma once

#include "App/Updates/UpdaterController.h"

#include <QWidget>

namespace quillbox {

class FlatButton;
class ProgressBar;
class SymbolLabel;
class TextLabel;

/// The window of the update: how far the look or the installation is, what came of it, and what can be done now. Holds
/// no state: it shows the phase of the updater, whenever that is announced. Closing it dismisses a result. Thread:
/// main.
class UpdateView : public QWidget {
    Q_OBJECT

public:
    /// @pre the updater outlives the view.
    explicit UpdateView(UpdaterController& updater, QWidget* parent = nullptr);

    /// Whether the desktop has a program that shows software, for what could not be done here.
    void setSoftwareCenter(bool isThere);
    /// While a clip is recorded or made, nothing can be restarted.
    void setBusy(bool isBusy);

    void setVisible(bool visible) override;

Q_SIGNALS:
    void restartRequested();
    void softwareCenterRequested();

protected:
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Content;
    struct ContentOf;

    QLayout* makeMessage();
    QLayout* makeButtons();
    void showPhase();
    void fit();

    UpdaterController& m_updater;
    bool m_hasSoftwareCenter = false;
    bool m_isBusy = false;
    SymbolLabel* m_symbol = nullptr;
    TextLabel* m_title = nullptr;
    TextLabel* m_text = nullptr;
    TextLabel* m_note = nullptr;
    ProgressBar* m_progress = nullptr;
    FlatButton* m_softwareCenter = nullptr;
    FlatButton* m_close = nullptr;
    FlatButton* m_install = nullptr;
    FlatButton* m_restart = nullptr;
};

} // namespace quillbox
