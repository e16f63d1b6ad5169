#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zulcommon/zulcommon_export.h"

class QLocale;

namespace zulcommon {

/// The text with a number from the application's shared string table: captions, labels and messages. UTF-8.
///
/// A number without a text gives a visible placeholder ("#1234"), never an empty caption. Reading is safe from any
/// thread as long as none changes the table. A change of the table holds for the dialogs that are created from then on.
ZULCOMMON_EXPORT std::string LoadZULResString(std::int32_t Number);

/// A text that a dialog holds as its own, in the language of the table.
///
/// `Name` says what it is: component and property ("ckbInactive.Caption"), with the dialog's name in front where it may
/// be another in one dialog ("frmPickCustomer.ckbInactive.Caption"): what the table has for the dialog goes before what
/// it has for all of them. `Default` is the English text, and the result when the table has none for it. A name of
/// which English is known to be another text than `Default` does not stand for it: a caption that a caller has given is
/// left alone.
ZULCOMMON_EXPORT std::string Translated(const std::string& Name, const std::string& Default);

/// Lays a host's own table over the texts: another language, or other words. Numbers and names that the file does not
/// hold keep their text.
///
/// The file is UTF-8, a line a text: the number or the name, a tab, the text, in which \n stands for a line break, \t
/// for a tab and \\ for a backslash. Empty lines and lines that start with # are skipped. A file that cannot be read,
/// or a line that is not of this form, throws `EZULException` that names the file and the line; the table then stays as
/// it was.
ZULCOMMON_EXPORT void LoadStringTable(const std::string& FileName);

/// Takes the built-in texts of a language ("de", "de-AT" and "de_AT" are German), in place of all that was laid over
/// the English ones before. False when there are none of that language; the texts then stay as they are.
ZULCOMMON_EXPORT bool UseLanguage(const std::string& Language);
/// The same for the first language that the locale's user reads (`QLocale::uiLanguages`) and that is built in.
ZULCOMMON_EXPORT bool UseLanguageOf(const QLocale& Locale);
/// What is built in, by code: "de", "en".
ZULCOMMON_EXPORT std::vector<std::string> BuiltInLanguages();

/// Goes back to the English texts that are compiled in.
ZULCOMMON_EXPORT void ResetStringTable();

}  // namespace zulcommon
