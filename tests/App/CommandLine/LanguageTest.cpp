#include "ProgramFixture.h"

namespace quillbox {
namespace {

class Language : public ProgramFixture { };

TEST_F(Language, OfErrorsIsTheUsers)
{
    EXPECT_EQ(shell("LC_ALL= LC_MESSAGES= LANGUAGE= LANG=fr_FR.UTF-8 quillbox encode").errors,
        "quillbox: INPUT est obligatoire\u00A0; voir quillbox encode --help\n");
    EXPECT_EQ(shell("LC_ALL=de_DE.UTF-8 LANGUAGE= quillbox encode missing.y4m").errors,
        "quillbox: missing.y4m: kann nicht geöffnet werden: No such file or directory\n");
}

TEST_F(Language, OfTheHelpIsTheUsers)
{
    const auto help = shell("LC_ALL=ja_JP.UTF-8 LANGUAGE= quillbox record --help").output;
    EXPECT_NE(help.find("画面の一部を GIF として録画する"), std::string::npos) << help;
    EXPECT_NE(help.find("\nオプション:\n"), std::string::npos) << help;
}

TEST_F(Language, OfAResultHasItsOwnPlurals)
{
    writeRaw("clip.rgba", {RGBAFrame(2, 1, Bytes(8, 200))});
    const auto line = shell("LC_ALL=es_ES.UTF-8 LANGUAGE= quillbox encode --raw 2x1 clip.rgba").output;
    EXPECT_NE(line.find(" 1 fotograma, 1 color, "), std::string::npos) << line;
}

TEST_F(Language, OfJSONIsAlwaysTheSame)
{
    writeRaw("clip.rgba", {RGBAFrame(2, 1, Bytes(8, 200))});
    const auto english = shell("quillbox encode --raw 2x1 --json clip.rgba").output;
    const auto german = shell("LC_ALL=de_DE.UTF-8 quillbox encode --raw 2x1 --json --force clip.rgba").output;
    EXPECT_NE(english, "");
    EXPECT_EQ(german, english);
}

} // namespace
} // namespace quillbox
