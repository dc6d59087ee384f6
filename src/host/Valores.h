#pragma once

// The one place where values are turned into SQL text and into the texts the screens show.
// Every value spliced into a statement goes through one of these functions.

#include "Money.h"
#include "NumeroBR.h"

#include <QDate>
#include <QDateTime>
#include <QString>

#include <optional>

// --- SQL text ---------------------------------------------------------------------------------

// Decimal point whatever the locale, no thousands separator, no exponent, at most 15 significant
// digits and no trailing zeros: 1234.5 -> "1234.5", 2.0 -> "2", 0.1 + 0.2 -> "0.3".
QString FloatToStrPonto(double value);
QString FloatToStrPonto(Money value);
// The digits of a valid 32-bit integer for any text: " 12 " -> "12", "-7" -> "-7",
// "12a3" -> "123", "" / "abc" / out of range -> "0".
QString StrToIntStr(const QString &text);
// A number typed the Brazilian way ("1.234,56", "12,5", "3") as SQL text ("1234.56", "12.5", "3");
// anything that is not a number gives "0".
QString StrToNumStrPonto(const QString &text);
// Enclosed in single quotes, every inner quote doubled: O'Neil -> 'O''Neil'. A NUL character is
// removed: the client API takes statements as C strings, so a NUL would end the statement there
// and can never be stored anyway. Every other character (tab, line breaks, ESC, ...) is kept.
QString QuotedStr(const QString &text);
// Firebird literals: '2026-11-22' and '2026-11-22 14:05:09'; an invalid date gives NULL.
QString DataSQLFirebird(const QDate &date);
QString DataHoraSQLFirebird(const QDateTime &dateTime);

// --- Rounding -----------------------------------------------------------------------------------

// `decimals` counts places after the point (4 = ten-thousandths); a negative count works on
// tens, hundreds, ... Non-finite values come back unchanged.
// Cuts the digits beyond `decimals` from the value's shortest decimal text (15 significant
// digits), so 1.115 * 1.111 = 1.238765 gives 1.2387 for 4 decimals.
double TruncarViaStr(double value, int decimals);
// Rounds half to even on the value's shortest decimal text: 2.675 -> 2.68, 2.665 -> 2.66,
// -2.665 -> -2.66 at 2 decimals.
double RoundTo(double value, int decimals);

// --- Display ------------------------------------------------------------------------------------

// Delphi-style numeric patterns with Brazilian separators (',' decimal, '.' thousands):
// "0" a digit always shown, "#" a digit shown when significant, "," anywhere in the integer part
// turns on thousands grouping, "." starts the decimals. Rounds half to even.
// "######0.00" 1234.5 -> "1234,50"; "#,###,##0.0000" 1234.5 -> "1.234,5000"; "##0" 17.5 -> "18";
// "000" 7 -> "007"; "######0.###" 2.5 -> "2,5"; "###0.0" 0.04 -> "0,0".
QString FormatFloat(const QString &pattern, double value);
QString FormatFloat(const QString &pattern, Money value);
// Delphi-style date patterns: dd, d, mm, m, yyyy, yy, hh, nn, ss ("dd/mm/yy", "dd/mm/yy hh:nn").
// "mm" right after "hh" or "h:" means minutes as in Delphi. An invalid value gives "".
QString FormatDateTime(const QString &pattern, const QDateTime &value);
QString FormatDateTime(const QString &pattern, const QDate &value);

// --- Reading what was typed ------------------------------------------------------------------------

// A number typed the Brazilian way: "1.234,56", "1234,56", "-0,5", "12"; blanks around are
// ignored; anything else gives nullopt. A '.' groups thousands, so exactly three digits follow
// it: "1.234" is 1234, while "12.5" and "1,234.56" are refused.
std::optional<double> LerNumeroBR(const QString &text);
// The same reading as plain decimal text: NumeroBRParaPonto (NumeroBR.h).

// --- Dates ------------------------------------------------------------------------------------------

QDate PrimeiroDateMes(const QDate &date);   // first day of the date's month
