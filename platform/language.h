// The player's language: chosen once at start from the locale variables, it decides which translation of
// the game's texts and of Qt's own (dialogs, standard buttons) is installed, and which help text is drawn.
// Without a match the game speaks English, its texts as they stand in the code.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

namespace language
{
// The language for an environment: the first language of LANGUAGE (preferences separated by colons) that
// the game speaks, English among them; else the first of LC_ALL, LC_MESSAGES and LANG that is set. A value
// such as "de_AT.UTF-8@euro" names "de"; "pt_BR" names "pt_BR", a translation for that region only. Returns
// one of `offered`, or "" for English, also for "C" and "POSIX" and for a language the game does not speak.
QString choose(const std::function<QString(const char *)> &variable, const QStringList &offered);

// The languages the game carries translations for, e.g. {"de", "es", "fr", "it", "pt_BR"}.
QStringList offered();

// Installs the translations of `code` ("" for English: removes any installed) for the game's texts and
// Qt's own. Returns false when the game has no translation for that language.
bool install(const QString &code);

// The language chosen from this process's environment and installed.
void installFromEnvironment();

// The language installed, "" for English.
QString current();

// A resource in the language installed where one exists: ":/help/help.txt" becomes ":/help/help_de.txt".
QString localised(const QString &resource);
} // namespace language
