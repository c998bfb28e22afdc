#pragma once

#include "App/Workflow/RecordingClock.h"
#include "Views/Controls/TextLabel.h"

namespace quillbox {

/// How long the recording has been going on. Every digit is as wide as the widest one, so that nothing moves as it
/// counts. Thread: main.
class TimeLabel : public TextLabel {
    Q_OBJECT

public:
    /// @pre `clock` outlives the view.
    TimeLabel(const RecordingClock& clock, TextStyle style, Role role, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] int cell(QChar character) const;
    void showTime();

    const RecordingClock& m_clock;
};

} // namespace quillbox
