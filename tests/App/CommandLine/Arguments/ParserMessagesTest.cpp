#include "App/CommandLine/Arguments/ParserMessages.h"

#include "App/CommandLine/CommandLine.h"
#include "Translation/Catalogues.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillbox {
namespace {

/// German until the test is over.
class ParserMessagesInGerman : public testing::Test {
protected:
    ParserMessagesInGerman() { Catalogues::use(QStringLiteral("de")); }
    ~ParserMessagesInGerman() override { Catalogues::use(QStringLiteral("en")); }

    static std::string complaintAbout(std::vector<const char*> arguments)
    {
        arguments.insert(arguments.begin(), "quillbox");
        try {
            (void)CommandLine::parse(static_cast<int>(arguments.size()), arguments.data());
        } catch (const UsageError& error) {
            return error.what();
        }
        return "none";
    }
};

TEST_F(ParserMessagesInGerman, CoverWhatOurOptionsCanDraw)
{
    EXPECT_EQ(complaintAbout({"encode"}), "INPUT fehlt; siehe quillbox encode --help");
    EXPECT_EQ(complaintAbout({"dance"}), "Unerwartetes Argument: dance; siehe quillbox --help");
    EXPECT_EQ(complaintAbout({"dance", "on"}), "Unerwartete Argumente: on dance; siehe quillbox --help");
    EXPECT_EQ(complaintAbout({"encode", "a", "--raw"}), "--raw: der Wert WxH fehlt; siehe quillbox encode --help");
}

TEST_F(ParserMessagesInGerman, LeaveWhatTheyDoNotKnow)
{
    EXPECT_EQ(ParserMessages::translated(""), "");
    EXPECT_EQ(ParserMessages::translated("Something new happened"), "Something new happened");
}

TEST(ParserMessages, AreTheParsersOwnInEnglish)
{
    for (const std::string sentence : {"INPUT is required", "--raw: 1 required WxH missing",
             "Could not convert: --source-fps = a = b", "The following argument was not expected: x is required"})
        EXPECT_EQ(ParserMessages::translated(sentence), sentence);
}

} // namespace
} // namespace quillbox
