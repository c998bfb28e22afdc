#include "Translation/Catalogues.h"

#include "Translation/Translate.h"

#include <QByteArray>
#include <QCoreApplication>

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

QString chosen(const char* wishes)
{
    return Catalogues::languageFor(QString::fromLatin1(wishes).split(QLatin1Char(' '), Qt::SkipEmptyParts));
}

TEST(Catalogues, TakeTheFirstLanguageThatThereIs)
{
    EXPECT_EQ(chosen("de_AT.UTF-8 de"), "de");
    EXPECT_EQ(chosen("nl-NL pt-BR fr-CA es"), "fr");
    EXPECT_EQ(chosen("en-GB de"), "en") << "who reads English best is not given German";
    EXPECT_EQ(chosen("tlh de"), "de");
    EXPECT_EQ(chosen("C de"), "en");
    EXPECT_EQ(chosen("nl"), "en");
    EXPECT_EQ(chosen(""), "en");
}

TEST(Catalogues, TellSimplifiedFromTraditionalChinese)
{
    EXPECT_EQ(chosen("zh-CN"), "zh_CN");
    EXPECT_EQ(chosen("zh-SG"), "zh_CN");
    EXPECT_EQ(chosen("zh-Hans-HK"), "zh_CN");
    EXPECT_EQ(chosen("zh-TW"), "en");
    EXPECT_EQ(chosen("zh-HK ja"), "ja");
}

/// The environment of messages, as it was before again afterwards.
class MessageEnvironment : public testing::Test {
protected:
    MessageEnvironment()
    {
        for (const char* const name : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"}) {
            m_before.emplace_back(name, qgetenv(name));
            qunsetenv(name);
        }
    }
    ~MessageEnvironment() override
    {
        for (const auto& [name, value] : m_before)
            value.isNull() ? qunsetenv(name) : qputenv(name, value);
    }

private:
    std::vector<std::pair<const char*, QByteArray>> m_before;
};

TEST_F(MessageEnvironment, IsEnglishWithoutAWord)
{
    EXPECT_EQ(Catalogues::userLanguage(), "en");
}

TEST_F(MessageEnvironment, NamesTheLanguage)
{
    qputenv("LANG", "ja_JP.UTF-8");
    EXPECT_EQ(Catalogues::userLanguage(), "ja");
    qputenv("LC_MESSAGES", "de_DE.UTF-8");
    EXPECT_EQ(Catalogues::userLanguage(), "de");
    qputenv("LC_ALL", "es_MX.UTF-8");
    EXPECT_EQ(Catalogues::userLanguage(), "es");
    qputenv("LANGUAGE", "nl:fr");
    EXPECT_EQ(Catalogues::userLanguage(), "fr");
}

TEST_F(MessageEnvironment, IsEnglishForScriptsWhateverTheUserPrefers)
{
    qputenv("LANGUAGE", "de");
    for (const char* const locale : {"C", "C.UTF-8", "POSIX"}) {
        qputenv("LC_ALL", locale);
        EXPECT_EQ(Catalogues::userLanguage(), "en") << locale;
    }
}

/// English again afterwards.
class CatalogueInUse : public testing::Test {
protected:
    ~CatalogueInUse() override { Catalogues::use("en"); }

    static std::string frames(int count) { return translate("ResultReport", "%n frame(s)", nullptr, count); }
};

TEST_F(CatalogueInUse, LeavesEnglishTextsAsTheyAre)
{
    Catalogues::use("en");
    EXPECT_EQ(translate("quillbox::RecorderHUD", "Record Region"), "Record Region");
}

TEST_F(CatalogueInUse, HasTheRightPluralInEveryLanguage)
{
    const std::vector<std::pair<const char*, std::vector<std::string>>> expected{
        {"en", {"0 frames", "1 frame", "2 frames"}},
        {"de", {"0 Bilder", "1 Bild", "2 Bilder"}},
        {"es", {"0 fotogramas", "1 fotograma", "2 fotogramas"}},
        {"fr", {"0 image", "1 image", "2 images"}},
        {"ja", {"0 フレーム", "1 フレーム", "2 フレーム"}},
        {"zh_CN", {"0 帧", "1 帧", "2 帧"}},
    };
    for (const auto& [language, texts] : expected) {
        Catalogues::use(language);
        EXPECT_EQ((std::vector{frames(0), frames(1), frames(2)}), texts) << language;
    }
}

TEST_F(CatalogueInUse, ReachesTheApplicationObjectWhicheverComesFirst)
{
    Catalogues::use("de");
    int count = 1;
    char name[] = "test";
    char* arguments[] = {name, nullptr};
    const QCoreApplication application(count, arguments);
    EXPECT_EQ(QCoreApplication::translate("quillbox::RecorderHUD", "Quit"), "Quit");
    Catalogues::install();
    EXPECT_EQ(QCoreApplication::translate("quillbox::RecorderHUD", "Quit"), "Beenden");
    Catalogues::use("fr");
    EXPECT_EQ(QCoreApplication::translate("quillbox::RecorderHUD", "Quit"), "Quitter");
    Catalogues::use("en");
    EXPECT_EQ(QCoreApplication::translate("quillbox::RecorderHUD", "Quit"), "Quit");
}

TEST_F(CatalogueInUse, HasAnotherTextForEachLanguage)
{
    for (const QString& language : Catalogues::languages()) {
        Catalogues::use(language);
        EXPECT_EQ(translate("quillbox::RecorderHUD", "Settings") == "Settings", language == "en")
            << language.toStdString();
    }
}

} // namespace
} // namespace quillbox
