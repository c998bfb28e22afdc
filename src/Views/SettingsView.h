#pragma once

#include <QWidget>

namespace quillbox {

class Scroller;
class TextLabel;

/// The settings window. There is nothing to set: it tells the shortcut and what happens to the user's data. Thread:
/// main.
class SettingsView : public QWidget {
    Q_OBJECT

public:
    /// @param footerNotice  One line about the product, below everything.
    explicit SettingsView(const QString& footerNotice, QWidget* parent = nullptr);

    void setFooterNotice(const QString& notice);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* makeGeneralTab();
    void fit();

    TextLabel* m_footer;
    Scroller* m_scroller = nullptr;
};

} // namespace quillbox
