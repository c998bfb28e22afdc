#pragma once

#include <QWidget>

namespace quillbox {

class CutOffOffer;
class FlatButton;
class TextLabel;

/// Tells of a recording that was cut off, and offers to make the clip of it or to discard it, which it asks about once
/// more. Hidden where there is none. Thread: main.
class CutOffLine : public QWidget {
    Q_OBJECT

public:
    /// @pre `offer` outlives the view.
    explicit CutOffLine(CutOffOffer& offer, QWidget* parent = nullptr);

private:
    void follow();
    void ask(bool isAsking);

    CutOffOffer& m_offer;
    TextLabel* m_text;
    TextLabel* m_problem;
    FlatButton* m_make;
    FlatButton* m_discard;
    FlatButton* m_confirm;
    FlatButton* m_keep;
    bool m_isAsking = false; // whether to discard it
};

} // namespace quillbox
