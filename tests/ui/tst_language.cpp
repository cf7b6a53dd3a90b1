// The player's language: chosen from the locale variables, and in every language each text fits the
// control that shows it, the help fits its picture, and no translation loses what its English text carries.
#include "game.h"
#include "help/helppicture.h"
#include "platform/language.h"

#include <QAbstractButton>
#include <QDialog>
#include <QRegularExpression>
#include <QTest>
#include <QXmlStreamReader>

namespace
{
// Every button and label of the window whose text needs more room than it has, as "text (needs x w)".
QStringList clipped(const QWidget &window)
{
    QStringList out;
    for (const QAbstractButton *b : window.findChildren<QAbstractButton *>()) {
        const QSize need = b->sizeHint();
        if (!b->text().isEmpty() && (need.width() > b->width() || need.height() > b->height()))
            out << QStringLiteral("%1 (needs %2 of %3)").arg(b->text()).arg(need.width()).arg(b->width());
    }
    for (const TextLabel *l : window.findChildren<TextLabel *>()) {
        const int need = l->fontMetrics().horizontalAdvance(l->text());
        if (need > l->width())
            out << QStringLiteral("%1 (needs %2 of %3)").arg(l->text()).arg(need).arg(l->width());
    }
    return out;
}

struct HelpPicture {
    QImage img { 590, 596, QImage::Format_RGB32 };
    int pixels = drawHelpPicture(img, 19);
};

// The buttons each line of a help source shows, in order, and how many lines it has.
QStringList helpButtons(const QString &resource)
{
    QFile f(resource);
    if (!f.open(QIODevice::ReadOnly))
        return { QStringLiteral("cannot open ") + resource };
    QStringList lines;
    static const QRegularExpression button(QStringLiteral("\\[[a-z_]+\\]"));
    for (const QString &line : QString::fromUtf8(f.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        QStringList names;
        for (const auto &m : button.globalMatch(line))
            names << m.captured();
        lines << names.join(QLatin1Char(' '));
    }
    return lines;
}

// What a translation must keep of its English text: the same arguments, one access key where it has one,
// and its line breaks.
QString kept(const QString &text)
{
    static const QRegularExpression arg(QStringLiteral("%\\d"));
    QStringList args;
    for (const auto &m : arg.globalMatch(text))
        args << m.captured();
    args.sort();
    QString noDoubles = text;
    noDoubles.remove(QStringLiteral("&&"));
    return args.join(QLatin1Char(','))
        + QStringLiteral(" keys %1 lines %2")
              .arg(noDoubles.count(QLatin1Char('&')))
              .arg(text.count(QLatin1Char('\n')));
}
} // namespace

class LanguageTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        language::install(QString());
    }

    void choosesFromLocale_data()
    {
        QTest::addColumn<QStringList>("env"); // name=value pairs
        QTest::addColumn<QString>("chosen");
        QTest::newRow("nothing set") << QStringList() << "";
        QTest::newRow("LANG") << QStringList { "LANG=de_DE.UTF-8" } << "de";
        QTest::newRow("modifier and region") << QStringList { "LANG=de_AT.UTF-8@euro" } << "de";
        QTest::newRow("LC_MESSAGES over LANG") << QStringList { "LANG=de_DE", "LC_MESSAGES=fr_FR" } << "fr";
        QTest::newRow("LC_ALL over both")
            << QStringList { "LANG=de_DE", "LC_MESSAGES=fr_FR", "LC_ALL=es_ES.UTF-8" } << "es";
        QTest::newRow("C locale") << QStringList { "LC_ALL=C.UTF-8", "LANG=de_DE" } << "";
        QTest::newRow("unknown language") << QStringList { "LANG=pt_BR.UTF-8" } << "";
        QTest::newRow("LANGUAGE first") << QStringList { "LANGUAGE=fr", "LC_ALL=de_DE" } << "fr";
        QTest::newRow("LANGUAGE's first known")
            << QStringList { "LANGUAGE=it:es_MX:fr", "LANG=de_DE" } << "es";
        QTest::newRow("English preferred") << QStringList { "LANGUAGE=en_GB:de", "LANG=de_DE" } << "";
        QTest::newRow("LANGUAGE of none known")
            << QStringList { "LANGUAGE=it:pt", "LANG=fr_FR.UTF-8" } << "fr";
        QTest::newRow("empty LANGUAGE") << QStringList { "LANGUAGE=", "LANG=es_ES" } << "es";
    }
    void choosesFromLocale()
    {
        QFETCH(QStringList, env);
        QFETCH(QString, chosen);
        const auto variable = [&](const char *name) {
            for (const QString &pair : env)
                if (pair.section(QLatin1Char('='), 0, 0) == QLatin1String(name))
                    return pair.section(QLatin1Char('='), 1);
            return QString();
        };
        QCOMPARE(language::choose(variable, language::offered()), chosen);
    }

    void everyTextFits_data()
    {
        QTest::addColumn<QString>("code");
        QTest::newRow("English") << "";
        for (const QString &code : language::offered())
            QTest::newRow(qPrintable(code)) << code;
    }
    void everyTextFits()
    {
        QFETCH(QString, code);
        QVERIFY(language::install(code));
        QCOMPARE(language::current(), code);
        // The language's own texts, not English ones that would fit anyway.
        QCOMPARE(QCoreApplication::translate("vxmain", "Open Image") == QLatin1String("Open Image"),
            code.isEmpty());
        Game g;
        QCOMPARE(clipped(g.w), QStringList());
        // The closing line printed over the help picture, in the help box's font.
        const QString close = QCoreApplication::translate("vxmain", "Click Here To Close Help");
        QVERIFY(QFontMetrics(g.w.hlpdoc->font()).horizontalAdvance(close) <= 590);

        QStringList dialogs;
        int shown = 0;
        g.tp.modals.script = [&](QDialog &d) {
            ++shown;
            dialogs << clipped(d);
        };
        g.w.cb_lib_Click();
        g.w.cb_resize_Click();
        QCOMPARE(shown, 2);
        QCOMPARE(dialogs, QStringList());
    }

    void helpFitsItsPicture_data()
    {
        everyTextFits_data();
    }
    void helpFitsItsPicture()
    {
        QFETCH(QString, code);
        const HelpPicture english;
        QVERIFY(language::install(code));
        QCOMPARE(helpButtons(language::localised(QStringLiteral(":/help/help.txt"))),
            helpButtons(QStringLiteral(":/help/help.txt")));
        const HelpPicture help;
        const QImage &img = help.img;
        QCOMPARE(img == english.img, code.isEmpty());
        // As large a text as the English help's: no translation makes every line smaller to fit.
        QCOMPARE(help.pixels, english.pixels);
        // Nothing is drawn into the right margin under the logo strip: no line runs past the width.
        for (int y = 19; y < img.height(); ++y)
            for (int x = img.width() - 8; x < img.width(); ++x)
                QVERIFY2(img.pixel(x, y) == qRgb(255, 255, 255),
                    qPrintable(QStringLiteral("ink at %1, %2").arg(x).arg(y)));
    }

    void translationsKeepArgumentsAndKeys_data()
    {
        QTest::addColumn<QString>("code");
        for (const QString &code : language::offered())
            QTest::newRow(qPrintable(code)) << code;
    }
    void translationsKeepArgumentsAndKeys()
    {
        QFETCH(QString, code);
        QFile ts(QStringLiteral(VARNO_SOURCE "/resources/translations/varno_%1.ts").arg(code));
        QVERIFY(ts.open(QIODevice::ReadOnly));
        QXmlStreamReader xml(&ts);
        QString source;
        int messages = 0;
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement)
                continue;
            if (xml.name() == QLatin1String("source")) {
                source = xml.readElementText();
            } else if (xml.name() == QLatin1String("translation")) {
                const QString translation = xml.readElementText();
                QVERIFY2(!translation.isEmpty(), qPrintable(source));
                QCOMPARE(kept(translation), kept(source));
                ++messages;
            }
        }
        QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
        QVERIFY(messages > 50);
    }
};

QTEST_MAIN(LanguageTest)
#include "tst_language.moc"
