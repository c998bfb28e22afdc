#pragma once

#include <QString>

namespace quillbox {

/// `value` with exactly so many decimals, as printf's "%.*f" writes it in the C locale: to the nearest, and what lies
/// exactly between two goes to the even one. (QString::number rounds such a value away from zero.)
[[nodiscard]] QString fixedPoint(double value, int decimals);

} // namespace quillbox
