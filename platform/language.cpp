#include "platform/language.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <memory>

namespace
{
const QString Folder = QStringLiteral(":/i18n");

// "de_AT.UTF-8@euro" names "de_AT", "pt-br" names "pt_BR", "de" names "de"; "C" and "POSIX" name English.
QString languageOf(const QString &locale)
{
    const QString name = locale.section(QLatin1Char('.'), 0, 0).section(QLatin1Char('@'), 0, 0);
    const QString code = name.section(QLatin1Char('_'), 0, 0).section(QLatin1Char('-'), 0, 0).toLower();
    if (code == QLatin1String("c") || code == QLatin1String("posix"))
        return QStringLiteral("en");
    const QString region = name.mid(code.size() + 1).toUpper();
    return region.isEmpty() ? code : code + QLatin1Char('_') + region;
}

QString installed;
std::unique_ptr<QTranslator> game;
std::unique_ptr<QTranslator> qt;
} // namespace

namespace language
{
QString choose(const std::function<QString(const char *)> &variable, const QStringList &offered)
{
    // A region's own translation ("pt_BR") first, else the language's ("de" for "de_AT"); a translation
    // for one region does not stand in for another ("pt_PT" is not given "pt_BR"), as with gettext.
    const auto match = [&](const QString &locale) {
        const QString code = languageOf(locale);
        if (offered.contains(code))
            return code;
        const QString general = code.section(QLatin1Char('_'), 0, 0);
        return offered.contains(general) ? general : QString();
    };
    // A list of preferences: the first the game speaks wins, English among them.
    const QString preferences = variable("LANGUAGE");
    if (!preferences.isEmpty()) {
        for (const QString &entry : preferences.split(QLatin1Char(':'), Qt::SkipEmptyParts)) {
            if (languageOf(entry).section(QLatin1Char('_'), 0, 0) == QLatin1String("en"))
                return {};
            if (const QString code = match(entry); !code.isEmpty())
                return code;
        }
    }
    for (const char *name : { "LC_ALL", "LC_MESSAGES", "LANG" })
        if (const QString value = variable(name); !value.isEmpty())
            return match(value);
    return {};
}

QStringList offered()
{
    QStringList codes;
    for (const QString &file :
        QDir(Folder).entryList({ QStringLiteral("varno_*.qm") }, QDir::Files, QDir::Name))
        codes << file.section(QLatin1Char('_'), 1).section(QLatin1Char('.'), 0, 0);
    return codes;
}

bool install(const QString &code)
{
    // English, the game's own texts, needs nothing: only a language installed before is taken back.
    if (game) {
        for (auto *translator : { &game, &qt }) {
            if (*translator)
                QCoreApplication::removeTranslator(translator->get());
            translator->reset();
        }
        installed.clear();
        QLocale::setDefault(QLocale::system());
    }
    if (code.isEmpty())
        return true;
    game = std::make_unique<QTranslator>();
    if (!game->load(QStringLiteral("varno_") + code, Folder)) {
        game.reset();
        return false;
    }
    QCoreApplication::installTranslator(game.get());
    // Qt's own texts (the file dialog, a message box's buttons) come from the system's Qt translations;
    // where they are not installed those stay English.
    qt = std::make_unique<QTranslator>();
    if (qt->load(QStringLiteral("qtbase_") + code, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(qt.get());
    else
        qt.reset();
    QLocale::setDefault(QLocale(code));
    installed = code;
    return true;
}

void installFromEnvironment()
{
    install(choose([](const char *name) { return qEnvironmentVariable(name); }, offered()));
}

QString current()
{
    return installed;
}

QString localised(const QString &resource)
{
    if (installed.isEmpty())
        return resource;
    const int dot = int(resource.lastIndexOf(QLatin1Char('.')));
    const QString translated = resource.left(dot) + QLatin1Char('_') + installed + resource.mid(dot);
    return QFile::exists(translated) ? translated : resource;
}
} // namespace language
