// The options are described after the language is installed, when they are printed, so the help speaks
// the player's language; reading them needs no translation and no application object.
#include "app/commandline.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QUrl>
#include <cstdio>

namespace commandline
{
namespace
{
    // Qt's own options for every graphical program: taken, and left for Qt to act on.
    const char *const QtValueOptions[]
        = { "platform", "platformpluginpath", "platformtheme", "plugin", "qwindowgeometry", "qwindowicon",
              "qwindowtitle", "session", "display", "geometry", "style", "stylesheet" };
    const char *const QtFlagOptions[] = { "reverse", "widgetcount" };

    struct Parser {
        QCommandLineParser parser;
        QCommandLineOption help { { QStringLiteral("h"), QStringLiteral("help") },
            QCoreApplication::translate("CommandLine", "Show this help and end.") };
        QCommandLineOption version { { QStringLiteral("v"), QStringLiteral("version") },
            QCoreApplication::translate("CommandLine", "Show the name and version and end.") };
        bool parsed = false;

        explicit Parser(const QStringList &arguments)
        {
            parser.setApplicationDescription(QCoreApplication::translate("CommandLine",
                "Varno, a picture tile puzzle: scramble a picture into tiles and put it together again."));
            // Qt's own options have a single dash, as "-platform xcb"; ours take one or two.
            parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
            parser.addOption(help);
            parser.addOption(version);
            for (const char *name : QtValueOptions) {
                QCommandLineOption qt(QString::fromLatin1(name), QString(), QStringLiteral("value"));
                qt.setFlags(QCommandLineOption::HiddenFromHelp);
                parser.addOption(qt);
            }
            for (const char *name : QtFlagOptions) {
                QCommandLineOption qt(QString::fromLatin1(name));
                qt.setFlags(QCommandLineOption::HiddenFromHelp);
                parser.addOption(qt);
            }
            parser.addPositionalArgument(QCoreApplication::translate("CommandLine", "picture"),
                QCoreApplication::translate("CommandLine", "A JPEG, GIF or BMP picture to open."),
                QCoreApplication::translate("CommandLine", "[picture]"));
            parsed = parser.parse(arguments);
        }

        Outcome outcome() const
        {
            if (!parsed || parser.positionalArguments().size() > 1)
                return Outcome::Mistake;
            if (parser.isSet(help))
                return Outcome::Help;
            if (parser.isSet(version))
                return Outcome::Version;
            return Outcome::Play;
        }
    };

    void print(FILE *stream, const QString &text)
    {
        const QByteArray bytes = text.toLocal8Bit();
        std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stream);
        std::fflush(stream);
    }
} // namespace

QStringList arguments(int argc, char *argv[])
{
    QStringList list;
    for (int i = 0; i < argc; ++i)
        list << QString::fromLocal8Bit(argv[i]);
    return list;
}

Request read(const QStringList &arguments)
{
    const Parser p(arguments);
    Request request { p.outcome(), {} };
    const QStringList pictures = p.parser.positionalArguments();
    if (request.outcome == Outcome::Play && !pictures.isEmpty()) {
        // A file manager may hand over a file URL; a relative name is taken from the starting folder.
        const QUrl url(pictures.constFirst());
        const QString path = url.isLocalFile() ? url.toLocalFile() : pictures.constFirst();
        request.picture = QFileInfo(QDir::current(), path).absoluteFilePath();
    }
    return request;
}

int answer(const QStringList &arguments)
{
    const Parser p(arguments);
    const QString name = QFileInfo(arguments.value(0, QStringLiteral("varno"))).fileName();
    switch (p.outcome()) {
    case Outcome::Help:
        print(stdout, p.parser.helpText());
        return 0;
    case Outcome::Version:
        print(stdout, name + QLatin1Char(' ') + QStringLiteral(VARNO_VERSION) + QLatin1Char('\n'));
        return 0;
    case Outcome::Mistake:
        print(stderr,
            name + QStringLiteral(": ")
                + (p.parsed ? QCoreApplication::translate("CommandLine", "Only one picture can be opened.")
                            : p.parser.errorText())
                + QLatin1Char('\n')
                + QCoreApplication::translate("CommandLine", "Try '%1 --help' for more.").arg(name)
                + QLatin1Char('\n'));
        return 2;
    case Outcome::Play:
        break;
    }
    return 0;
}

} // namespace commandline
