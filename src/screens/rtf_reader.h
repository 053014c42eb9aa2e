#pragma once

#include <QByteArray>

class QTextDocument;

namespace amorra {

// Reads the Rich Text the quick start guide is written in: groups, \par,
// \line, \tab, \b, \i, \ul, \fs, \cf with its colour table, \qc/\ql/\qr/\qj,
// \'hh escapes (Windows-1252), \u Unicode with \uc, the usual special
// characters; other control words and ignorable destinations are skipped.
// Replaces the document's contents. Returns false, leaving the document
// empty, when the bytes are not RTF at all; a damaged or truncated file
// keeps whatever text could be read.
bool readRtf(const QByteArray &rtf, QTextDocument *document);

} // namespace amorra
