// The player's language: chosen from the locale variables; in every language each text fits the
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
        // The width only: a style's height hint adds room round the text (Qt 6.8's radio buttons ask for more
        // than their 20 pixels), and a translation changes only a line's length.
        const int need = b->sizeHint().width();
        if (!b->text().isEmpty() && need > b->width())
            out << QStringLiteral("%1 (needs %2 of %3)").arg(b->text()).arg(need).arg(b->width());
    }
    for (const TextLabel *l : window.findChildren<TextLabel *>()) {
        const int need = l->fontMetrics().horizontalAdvance(l->text());
        if (need > l->width())
            out << QStringLiteral("%1 (needs %2 of %3)").arg(l->text()).arg(need).arg(l->width());
    }
    return out;
}

// What a translation keeps of its English text: its arguments, access key and line breaks.
QString kept(const QString &text)
{
    static const QRegularExpression marks(QStringLiteral("%\\d|&|\n"));
    QStringList found;
    for (const auto &m : marks.globalMatch(text))
        found << m.captured();
    found.sort();
    return found.join(QLatin1Char(' '));
}

// Every source and its translation in a language's .ts file.
QList<QPair<QString, QString>> translations(const QString &code)
{
    QFile ts(QStringLiteral(VARNO_SOURCE "/resources/translations/varno_%1.ts").arg(code));
    QList<QPair<QString, QString>> out;
    if (!ts.open(QIODevice::ReadOnly))
        return out;
    QXmlStreamReader xml(&ts);
    while (!xml.atEnd())
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == QLatin1String("source"))
            out.append({ xml.readElementText(), QString() });
        else if (xml.isStartElement() && xml.name() == QLatin1String("translation") && !out.isEmpty())
            out.last().second = xml.readElementText();
    return out;
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
        QTest::newRow("LANG, region and modifier") << QStringList { "LANG=de_AT.UTF-8@euro" } << "de";
        QTest::newRow("LC_MESSAGES over LANG") << QStringList { "LANG=de_DE", "LC_MESSAGES=fr_FR" } << "fr";
        QTest::newRow("LC_ALL over both")
            << QStringList { "LANG=de_DE", "LC_MESSAGES=fr_FR", "LC_ALL=es_ES.UTF-8" } << "es";
        QTest::newRow("C locale") << QStringList { "LC_ALL=C.UTF-8", "LANG=de_DE" } << "";
        QTest::newRow("unknown language") << QStringList { "LANG=pt_BR.UTF-8" } << "";
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

    void everyLanguage_data()
    {
        QTest::addColumn<QString>("code");
        QTest::newRow("English") << "";
        for (const QString &code : language::offered())
            QTest::newRow(qPrintable(code)) << code;
    }
    void everyLanguage()
    {
        QFETCH(QString, code);
        QImage english(590, 596, QImage::Format_RGB32), help(english.size(), english.format());
        const int englishPixels = drawHelpPicture(english, 19);
        QVERIFY(language::install(code));
        QCOMPARE(language::current(), code);

        // Each translation keeps what its text carries; English has none.
        const auto all = translations(code);
        QCOMPARE(all.size() > 50, !code.isEmpty());
        for (const auto &[source, translation] : all)
            QCOMPARE(kept(translation), kept(source));

        // Every text fits its control, in the control's font, in the game and in its two dialogs.
        Game g;
        QCOMPARE(clipped(g.w).join(" | "), QString());
        const QString close = QCoreApplication::translate("vxmain", "Click Here To Close Help");
        QVERIFY(QFontMetrics(g.w.hlpdoc->font()).horizontalAdvance(close) <= 590);
        QStringList dialogs;
        g.tp.modals.script = [&](QDialog &d) { dialogs << d.windowTitle() << clipped(d); };
        g.w.cb_lib_Click();
        g.w.cb_resize_Click();
        QCOMPARE(dialogs.join(" | "),
            QCoreApplication::translate("libfrm", "Picture Library") + " | "
                + QCoreApplication::translate("rzfrm", "Puzzle Size"));

        // The help is the language's own, and every line fits at the English help's text size.
        QCOMPARE(drawHelpPicture(help, 19), englishPixels);
        QCOMPARE(help == english, code.isEmpty());
    }
};

QTEST_MAIN(LanguageTest)
#include "tst_language.moc"
