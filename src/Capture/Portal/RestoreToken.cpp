#include "Capture/Portal/RestoreToken.h"

#include "Platform/StateFile.h"

namespace quillbox::RestoreToken {

namespace {

const auto file = QStringLiteral("screen-cast");

} // namespace

QString read()
{
    return StateFile::read(file);
}

void replace(const QString& token)
{
    StateFile::replace(file, token);
}

QString path()
{
    return StateFile::path(file);
}

} // namespace quillbox::RestoreToken
