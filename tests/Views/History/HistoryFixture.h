#pragma once

#include "Find.h"
#include "ViewsFixture.h"

#include "Views/Controls/FlatButton.h"
#include "Views/History/HistoryPanel.h"
#include "Views/History/HistoryRow.h"

#include <QCoreApplication>
#include <QList>

#include <algorithm>

namespace quillbox::test {

/// The clips made lately, on the screen.
class HistoryFixture : public ViewsFixture {
public:
    HistoryFixture()
        : panel(*history, reveal)
    {
        panel.resize(384, 240);
        panel.show();
        panel.activateWindow();
    }

    /// From above.
    [[nodiscard]] QList<HistoryRow*> rows() const
    {
        QCoreApplication::sendPostedEvents(); // lay out
        QList<HistoryRow*> result = visible<HistoryRow>(panel);
        std::sort(
            result.begin(), result.end(), [](const HistoryRow* a, const HistoryRow* b) { return a->y() < b->y(); });
        return result;
    }
    [[nodiscard]] FlatButton* revealButton(int row) const { return rows().at(row)->findChild<FlatButton*>(); }

    HistoryPanel panel;
};

} // namespace quillbox::test
