// The player's language: chosen from the locale variables; in every language each text fits the
// control that shows it, the help fits its picture, and no translation loses what its English text carries.
#include "game.h"
#include "help/helppicture.h"
#include "platform/language.h"
#include "platform/qtservices.h"

#include <QAbstractButton>
#include <QDialog>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>
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

// The access keys that two or more buttons of a window take, as "Alt+A".
QStringList sharedKeys(const QWidget &window)
{
    QStringList keys, out;
    for (const QAbstractButton *b : window.findChildren<QAbstractButton *>())
        keys << QKeySequence::mnemonic(b->text()).toString();
    for (const QString &key : keys)
        if (!key.isEmpty() && keys.count(key) > 1 && !out.contains(key))
            out << key;
    return out;
}

// What a translation keeps of its English text: its arguments, count, access key and line breaks.
QString kept(const QString &text)
{
    static const QRegularExpression marks(QStringLiteral("%[\\dn]|&|\n"));
    QStringList found;
    for (const auto &m : marks.globalMatch(text))
        found << m.captured();
    found.sort();
    return found.join(QLatin1Char(' '));
}

// A text of a language's .ts file: its English source and its translation, or its plural forms.
struct Message {
    QString source;
    QStringList translations;
    bool plural = false;
};

QList<Message> translations(const QString &code)
{
    QFile ts(QStringLiteral(VARNO_SOURCE "/resources/translations/varno_%1.ts").arg(code));
    QList<Message> out;
    if (!ts.open(QIODevice::ReadOnly))
        return out;
    QXmlStreamReader xml(&ts);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("message"))
            out.append({ {}, {}, xml.attributes().value(QLatin1String("numerus")) == QLatin1String("yes") });
        else if (xml.name() == QLatin1String("source"))
            out.last().source = xml.readElementText();
        else if ((xml.name() == QLatin1String("translation") && !out.last().plural)
            || xml.name() == QLatin1String("numerusform"))
            out.last().translations << xml.readElementText();
    }
    return out;
}

// A number of tiles, places, bytes... as its argument: a count that needs the plural forms of %n. A
// size such as "%2 x %3 pixels" is a measure, and a place such as "place %1" a name.
const QRegularExpression Counted(
    QStringLiteral("(?<!x )%\\d (\\w+ )?(tiles|pieces|places|boxes|bytes|pixels|pictures|rows|columns)\\b"));
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
        columns<QString, QString>({ "env", "chosen" }); // name=value pairs, space-separated
        const auto row = [](const char *what, const char *env, const char *chosen) {
            QTest::newRow(what) << QString(env) << QString(chosen);
        };
        row("nothing set", "", "");
        row("LANG, region and modifier", "LANG=de_AT.UTF-8@euro", "de");
        row("LC_MESSAGES over LANG", "LANG=de_DE LC_MESSAGES=fr_FR", "fr");
        row("LC_ALL over both", "LANG=de_DE LC_MESSAGES=fr_FR LC_ALL=es_ES.UTF-8", "es");
        row("C locale", "LC_ALL=C.UTF-8 LANG=de_DE", "");
        row("unknown language", "LANG=nl_NL.UTF-8", "");
        row("a region's own", "LANG=pt_BR.UTF-8", "pt_BR");
        row("not another region's", "LANG=pt_PT.UTF-8", "");
        row("LANGUAGE's first known", "LANGUAGE=nl:pt_PT:es_MX:pt_BR LANG=de_DE", "es");
        row("English preferred", "LANGUAGE=en_GB:de LANG=de_DE", "");
        row("LANGUAGE of none known", "LANGUAGE=nl:pt LANG=fr_FR.UTF-8", "fr");
        row("empty LANGUAGE", "LANGUAGE= LANG=es_ES", "es");
    }
    void choosesFromLocale()
    {
        const auto [env, chosen] = fetch<QString, QString>("env", "chosen");
        const auto variable = [&](const char *name) {
            for (const QString &pair : env.split(' '))
                if (pair.section('=', 0, 0) == QLatin1String(name))
                    return pair.section('=', 1);
            return QString();
        };
        QCOMPARE(language::choose(variable, language::offered()), chosen);
    }

    void everyLanguage_data()
    {
        columns<QString>({ "code" });
        QTest::newRow("English") << "";
        for (const QString &code : language::offered())
            QTest::newRow(qPrintable(code)) << code;
    }
    void everyLanguage()
    {
        const auto [code] = fetch<QString>("code");
        QImage english(590, 596, QImage::Format_RGB32), help(english.size(), english.format());
        const int englishPixels = drawHelpPicture(english, 19);
        QVERIFY(language::install(code));
        QCOMPARE(language::current(), code);

        // Each translation keeps what its text carries, each plural form too; English has none. A text
        // with a count has plural forms ("1 tiles" is no word in any language).
        const auto all = translations(code);
        QCOMPARE(all.size() > 50, !code.isEmpty());
        for (const Message &m : all) {
            QVERIFY2(m.plural || !Counted.match(m.source).hasMatch(), qPrintable(m.source));
            QCOMPARE(m.translations.size() > 1, m.plural);
            for (const QString &translation : m.translations)
                QCOMPARE(kept(translation), kept(m.source));
        }

        // Every text fits its control, in the control's font, and no two buttons of a window share an
        // access key: in the game, its two dialogs and its two kinds of message box, whose Yes and No
        // are Qt's own, in the language too.
        Game g;
        QCOMPARE((clipped(g.w) + sharedKeys(g.w)).join(" | "), QString());
        const QString close = QCoreApplication::translate("vxmain", "Click Here To Close Help");
        QVERIFY(QFontMetrics(g.w.hlpdoc->font()).horizontalAdvance(close) <= 590);
        QStringList dialogs;
        g.tp.modals.script = [&](QDialog &d) { dialogs << d.windowTitle() << clipped(d) << sharedKeys(d); };
        g.w.cb_lib_Click();
        g.w.cb_resize_Click();
        QCOMPARE(dialogs.join(" | "),
            QCoreApplication::translate("libfrm", "Picture Library") + " | "
                + QCoreApplication::translate("rzfrm", "Puzzle Size"));
        QStringList boxes;
        for (const int style : { MsgStyle::YesNoQuestion, MsgStyle::Critical }) {
            QTimer::singleShot(0, [&] {
                QWidget *box = QApplication::activeModalWidget();
                boxes << sharedKeys(*box);
                for (const QAbstractButton *b : box->findChildren<QAbstractButton *>())
                    boxes << b->text();
                box->close();
            });
            QtMessageBoxes(&g.w).show(QStringLiteral("?"), QStringLiteral("?"), style);
        }
        QCOMPARE(boxes.size(), 3);
        QCOMPARE(boxes.contains(QStringLiteral("&Yes")), code.isEmpty());

        // The help is the language's own, and every line fits at the English help's text size.
        QCOMPARE(drawHelpPicture(help, 19), englishPixels);
        QCOMPARE(help == english, code.isEmpty());
    }
};

QTEST_MAIN(LanguageTest)
#include "tst_language.moc"
