#include "Translation/Catalogues.h"

#include "Encoding/Precondition.h"
#include "Translation/Translate.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include <memory>

// Resources of a static library are dropped by the linker unless someone asks for them; a macro for the global
// namespace.
static void ensureResources()
{
    Q_INIT_RESOURCE(quillbox_translations);
}

namespace quillbox {
namespace {

const auto english = QStringLiteral("en");

/// The catalogues in use.
struct Translators {
    std::unique_ptr<QTranslator> english;  ///< for what the language lacks
    std::unique_ptr<QTranslator> language; ///< none for English
};

Translators& translators()
{
    static Translators inUse;
    return inUse;
}

std::unique_ptr<QTranslator> catalogue(const QString& language)
{
    ensureResources();
    auto translator = std::make_unique<QTranslator>();
    const bool isThere = translator->load(QStringLiteral(":/quillbox/translations/quillbox_%1.qm").arg(language));
    precondition(isThere, "every language has its catalogue in the program");
    return translator;
}

std::string lookUp(const char* context, const char* text, const char* comment, int count)
{
    for (const QTranslator* const each : {translators().language.get(), translators().english.get()}) {
        if (each == nullptr)
            continue;
        const auto translation = each->translate(context, text, comment, count);
        if (!translation.isNull())
            return translation.toStdString();
    }
    return {};
}

/// The locale that messages are in, as the C library finds it.
QByteArray messageLocale()
{
    for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (auto value = qgetenv(name); !value.isEmpty())
            return value;
    return "C";
}

} // namespace

const QStringList& Catalogues::languages()
{
    static const QStringList all{english, QStringLiteral("de"), QStringLiteral("es"), QStringLiteral("fr"),
        QStringLiteral("ja"), QStringLiteral("zh_CN")};
    return all;
}

QString Catalogues::languageFor(const QStringList& wishes)
{
    for (const QString& wish : wishes) {
        const QLocale locale(wish.section(QLatin1Char('.'), 0, 0)); // without the encoding
        switch (locale.language()) {
        case QLocale::English:
            return english;
        case QLocale::C: // so are languages called that nobody knows here
            if (wish == QLatin1String("C") || wish == QLatin1String("POSIX"))
                return english;
            break;
        case QLocale::Chinese: // in traditional characters it is another language
            if (locale.script() == QLocale::SimplifiedHanScript)
                return QStringLiteral("zh_CN");
            break;
        default:
            if (auto code = QLocale::languageToCode(locale.language()); languages().contains(code))
                return code;
        }
    }
    return english;
}

QString Catalogues::userLanguage()
{
    const auto locale = messageLocale();
    if (locale == "POSIX" || locale == "C" || locale.startsWith("C."))
        return english;
    const auto wishes = qEnvironmentVariable("LANGUAGE", QString()).split(QLatin1Char(':'), Qt::SkipEmptyParts);
    return languageFor(wishes.isEmpty() ? QStringList(QString::fromLatin1(locale)) : wishes);
}

void Catalogues::use(const QString& language)
{
    auto& inUse = translators(); // the ones before leave the application object when they go
    inUse.english = catalogue(english);
    inUse.language = language == english ? nullptr : catalogue(language);
    setTranslator(&lookUp);
    install();
}

void Catalogues::install()
{
    if (QCoreApplication::instance() == nullptr)
        return;
    for (QTranslator* const each :
        {translators().english.get(), translators().language.get()}) // the last is asked first
        if (each != nullptr)
            QCoreApplication::installTranslator(each);
}

} // namespace quillbox
