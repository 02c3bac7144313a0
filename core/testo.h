// Text helpers with the semantics of the classic BASIC functions that the rows depend on.
// Every split, number read and number format of the program goes through here.
#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

#include <vector>

namespace tavolet {

// The field separator of the libretto's rows.
inline const QString kBarra = QStringLiteral("|");

inline const QString CRLF = QStringLiteral("\r\n");

// Numeric read from the left: skips leading blanks, optional sign, digits, one point,
// digits, an exponent (E or D) when digits follow it. Stops at the first character that
// cannot continue the number. "" -> 0, "6|x|" -> 6, "12.5.3" -> 12.5.
double Val(const QString& testo);
// The same on a piece of a longer text, read in place.
double Val(QStringView testo);
// Val truncated to a whole number, as a row's kind or a width is read: a number beyond the
// range of int gives the nearest end of it, and no number 0.
int ValIntero(QStringView testo);

// Picture formatting: '#' optional digit, '0' forced digit, '.' the decimal point (always a
// point). Rounds half away from zero on the decimal value. Other characters are copied.
QString Formato(double valore, const QString& figura);

// 1-based positions; a negative length or a start below 1 is an invalid call (error 5).
QString Left(const QString& s, int n);
QString Right(const QString& s, int n);
QString Mid(const QString& s, int inizio, int lunghezza = -1);
int Len(const QString& s);
// 1-based position of cerca in s from inizio, 0 when absent. An empty cerca gives inizio.
int InStr(const QString& s, const QString& cerca);
int InStr(int inizio, const QString& s, const QString& cerca);
int InStrRev(const QString& s, const QString& cerca);
// An empty string splits into one empty piece; an empty separator gives the whole string.
QStringList Split(const QString& s, const QString& separatore);
// The same pieces as views of s, into a list kept by the caller (rows of a large file).
void SplitVista(QStringView s, QChar separatore, std::vector<QStringView>& pezzi);
QString Join(const QStringList& pezzi, const QString& separatore);
// Blanks only (not tabs), as the classic functions do.
QString Trim(const QString& s);
QString LTrim(const QString& s);
QString RTrim(const QString& s);
// Upper and lower case limited to letters that have a case partner in Windows-1252.
QString UCase(const QString& s);
QString LCase(const QString& s);
// Every non-overlapping occurrence, left to right. Case-sensitive.
QString Replace(const QString& s, const QString& cerca, const QString& con);
QString Space(int n);
QString Str(double valore); // shortest decimal text with a point, no leading blank
// The runtime's conversion of a number to text: at most 15 significant digits, the exponent
// form ("1E+15", "1E-05") outside the plain range, a point as separator, "0" for zero.
QString CStr(double valore);

// Windows-1252 conversion, one byte a character both ways. Bytes that 1252 leaves undefined
// map to the control character of the same value; characters outside 1252 become '?'.
QString DaWindows1252(const QByteArray& byte);
QByteArray AWindows1252(const QString& testo);
// The byte of a character in Windows-1252, or -1 when the code page has none for it.
int CodiceWindows1252(char16_t c);

} // namespace tavolet
