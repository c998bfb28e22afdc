#include "Platform/BackEndChoice.h"

#include "Translation/Translate.h"

namespace quillbox {

std::string unknownBackEnd(const char* variable, const QByteArray& value, const std::string& known)
{
    return withArguments(
        translate("BackEnd", "%1 is \"%2\", which is none of %3"), {variable, value.toStdString(), known});
}

} // namespace quillbox
