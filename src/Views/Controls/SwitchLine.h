#pragma once

#include <QWidget>

class QAction;

namespace quillbox {

class Switch;

/// A line with a switch that is the same as an action of a menu: for desktops that have no place for the menu. Hidden
/// until it has an action. Thread: main.
class SwitchLine : public QWidget {
    Q_OBJECT

public:
    explicit SwitchLine(QWidget* parent = nullptr);

    /// Shows a switch for `action`, which can be checked; none where it is null. @pre It outlives the switch, and is
    /// always the same one.
    void setAction(QAction* action);

private:
    Switch* m_switch = nullptr; // made for the first action
};

} // namespace quillbox
