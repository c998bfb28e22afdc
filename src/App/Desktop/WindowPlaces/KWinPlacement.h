#pragma once

#include "App/Desktop/WindowPlaces/PointerPlacement.h"

#include <QTemporaryFile>

#include <memory>

namespace quillbox {

/// Has KWin run a script that places a window when it appears, before it is painted, and again whenever it has another
/// size, until the user moves it.
class KWinPlacement : public PointerPlacement {
    Q_OBJECT

public:
    KWinPlacement() = default;
    ~KWinPlacement() override;

protected:
    void begin(const QString& title) override;

private:
    void load();
    void run(const QString& path, const QString& otherPath);
    void unload();

    std::unique_ptr<QTemporaryFile> m_script; ///< while KWin has not read it
    int m_count = 0;
    QString m_name; ///< under which KWin knows the script; empty: none yet
};

} // namespace quillbox
