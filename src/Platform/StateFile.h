#pragma once

#include <QString>

namespace quillbox {

/// Small things that the program remembers from run to run and may lose: each one line in a file of its own, in the
/// folder `quillbox` of the user's state folder ($XDG_STATE_HOME, else ~/.local/state), readable by the user only.
/// Stateless; thread: any.
namespace StateFile {

/// Where the one called `name` is kept; an absolute path.
[[nodiscard]] QString path(const QString& name);

/// What it holds; empty if there is none.
[[nodiscard]] QString read(const QString& name);

/// Keeps `text` in its place; empty: there is none any more. One that can't be kept is forgotten. By `FileWorker`: it
/// is usually there when this returns.
void replace(const QString& name, const QString& text);

} // namespace StateFile
} // namespace quillbox
