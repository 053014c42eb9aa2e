#include "rtf_reader.h"

#include "slanted_font.h"

#include "core/cp1252.h"

#include <QColor>
#include <QTextBlock>
#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <QVector>

#include <string>

namespace amorra {

namespace {

constexpr int kMaxDepth = 200; // deeper nesting is damage, not a guide
// A guide is a few pages. The document costs time for every run of text
// and every paragraph it holds, and laying out for every character, so one
// that would hold more than this is shown only up to there.
constexpr int kMostPieces = 50000;
constexpr qsizetype kMostCharacters = 1000000;

// Destinations whose text is never shown.
bool isHiddenDestination(const QByteArray &word)
{
    static const char *const hidden[] = {
        "fonttbl", "stylesheet", "info", "pict", "object", "header", "headerl", "headerr", "headerf", "footer",
        "footerl", "footerr", "footerf", "footnote", "listtable", "listoverridetable", "rsidtbl", "generator",
        "xmlnstbl", "themedata", "colorschememapping", "latentstyles", "datastore", "filetbl", "revtbl", "fldinst",
        "bkmkstart", "bkmkend", "nonshppict", "private", "userprops", "mmathPr", "pgdsctbl"};
    for (const char *name : hidden)
        if (word == name)
            return true;
    return false;
}

// The character each Windows-1252 byte stands for, worked out once.
QChar cp1252Char(unsigned char byte)
{
    static const QVector<QChar> table = [] {
        QVector<QChar> chars(256);
        for (int b = 0; b < 256; ++b) {
            const std::string utf8 = fromCp1252(std::string(1, static_cast<char>(b)));
            chars[b] = QString::fromUtf8(utf8.data(), static_cast<int>(utf8.size())).at(0);
        }
        return chars;
    }();
    return table.at(byte);
}

struct GroupState
{
    QTextCharFormat chars;
    Qt::Alignment alignment = Qt::AlignLeft;
    int unicodeSkip = 1;
    bool hidden = false;
    bool colourTable = false;
};

class RtfParser
{
public:
    RtfParser(const QByteArray &rtf, QTextDocument *document)
        : m_in(rtf)
        , m_cursor(document)
        , m_family(document->defaultFont().families().value(0, document->defaultFont().family()))
    {
    }

    void run()
    {
        // One edit for the whole guide: the document is laid out once at the
        // end, not again after every run of text, which made a paragraph of
        // many short runs cost the square of its length.
        m_cursor.beginEditBlock();
        while (m_at < m_in.size() && !full()) {
            const char c = m_in.at(m_at++);
            switch (c) {
            case '{':
                openGroup();
                break;
            case '}':
                closeGroup();
                break;
            case '\\':
                controlSequence();
                break;
            case '\r':
            case '\n':
                break;
            default:
                character(c);
            }
        }
        flush();
        m_cursor.endEditBlock();
    }

private:
    void openGroup()
    {
        flush();
        if (m_stack.size() >= kMaxDepth) {
            ++m_overflow;
            return;
        }
        m_stack.push_back(m_state);
        m_state.colourTable = false;
        m_skipPending = 0;
    }

    void closeGroup()
    {
        flush();
        if (m_overflow > 0) {
            --m_overflow;
            return;
        }
        if (m_state.colourTable && m_hasColourPart)
            endColour();
        if (m_stack.isEmpty())
            return; // a stray brace: ignore it rather than lose the rest
        m_state = m_stack.takeLast();
        // A paragraph takes the alignment in force at its \par; only one not
        // yet begun follows the group's end.
        if (m_cursor.block().length() <= 1)
            setAlignment(m_state.alignment);
        m_skipPending = 0;
    }

    void character(char c)
    {
        if (m_state.colourTable) {
            if (c == ';')
                endColour();
            return;
        }
        if (skipFallback())
            return;
        if (c == '\t') {
            text(QStringLiteral("\t"));
            return;
        }
        if (static_cast<unsigned char>(c) < 0x20)
            return;
        if (!hidden())
            m_pending += cp1252Char(static_cast<unsigned char>(c));
    }

    // Characters that stand in for a \u character on older readers.
    bool skipFallback()
    {
        if (m_skipPending > 0) {
            --m_skipPending;
            return true;
        }
        return false;
    }

    void text(const QString &s)
    {
        if (!hidden())
            m_pending += s;
    }

    void flush()
    {
        if (m_pending.isEmpty() || full())
            return;
        m_pending.truncate(kMostCharacters - m_characters);
        m_characters += m_pending.size();
        ++m_pieces;
        QTextCharFormat chars = m_state.chars;
        // Italics are the upright face slanted, as on the game's windows.
        if (chars.fontItalic())
            chars.setFontStyleName(uprightStyle(m_family, chars.fontWeight() >= QFont::Bold));
        m_cursor.insertText(m_pending, chars);
        m_pending.clear();
    }

    bool full() const { return m_pieces >= kMostPieces || m_characters >= kMostCharacters; }

    void controlSequence()
    {
        if (m_at >= m_in.size())
            return;
        const char c = m_in.at(m_at);
        if (!isLetter(c)) {
            ++m_at;
            controlSymbol(c);
            return;
        }
        QByteArray word;
        while (m_at < m_in.size() && isLetter(m_in.at(m_at))) {
            if (word.size() < 32) // longer words are none we know
                word += m_in.at(m_at);
            ++m_at;
        }
        bool hasParam = false;
        long long param = 0;
        bool negative = false;
        if (m_at < m_in.size() && m_in.at(m_at) == '-') {
            negative = true;
            ++m_at;
        }
        while (m_at < m_in.size() && isDigit(m_in.at(m_at))) {
            hasParam = true;
            if (param < 100000000)
                param = param * 10 + (m_in.at(m_at) - '0');
            ++m_at;
        }
        if (negative)
            param = -param;
        if (m_at < m_in.size() && m_in.at(m_at) == ' ')
            ++m_at; // the delimiting space belongs to the control word
        controlWord(word, hasParam, static_cast<int>(param));
    }

    void controlSymbol(char c)
    {
        switch (c) {
        case '\'': {
            const int byte = hexByte();
            if (byte < 0 || skipFallback())
                return;
            text(QString(cp1252Char(static_cast<unsigned char>(byte))));
            return;
        }
        case '\\':
        case '{':
        case '}':
            if (!skipFallback())
                text(QString(QChar::fromLatin1(c)));
            return;
        case '~':
            text(QString(QChar(0x00A0)));
            return;
        case '_':
            text(QStringLiteral("-"));
            return;
        case '*':
            m_state.hidden = true; // an ignorable destination we do not know
            return;
        case '\r':
        case '\n':
            paragraph();
            return;
        default:
            return;
        }
    }

    int hexByte()
    {
        if (m_at + 2 > m_in.size()) {
            m_at = m_in.size(); // cut off in the middle: nothing more to read
            return -1;
        }
        bool ok = false;
        const int value = m_in.mid(m_at, 2).toInt(&ok, 16);
        if (!ok)
            return -1;
        m_at += 2;
        return value;
    }

    void controlWord(const QByteArray &w, bool hasParam, int p)
    {
        if (m_overflow > 0)
            return; // nested past any sense: its formatting must not leak out
        const bool on = !hasParam || p != 0;
        if (isHiddenDestination(w)) {
            m_state.hidden = true;
            return;
        }
        if (w == "colortbl") {
            m_state.colourTable = true;
            m_state.hidden = true;
            m_colours.clear();
            return;
        }
        if (m_state.colourTable) {
            if (w == "red")
                m_red = p, m_hasColourPart = true;
            else if (w == "green")
                m_green = p, m_hasColourPart = true;
            else if (w == "blue")
                m_blue = p, m_hasColourPart = true;
            return;
        }
        flush();
        if (w == "par" || w == "sect" || w == "page")
            paragraph();
        else if (w == "line")
            text(QString(QChar::LineSeparator));
        else if (w == "tab")
            text(QStringLiteral("\t"));
        else if (w == "b")
            m_state.chars.setFontWeight(on ? QFont::Bold : QFont::Normal);
        else if (w == "i")
            m_state.chars.setFontItalic(on);
        else if (w == "ul")
            m_state.chars.setFontUnderline(on);
        else if (w == "ulnone")
            m_state.chars.setFontUnderline(false);
        else if (w == "fs" && hasParam && p > 0)
            m_state.chars.setFontPointSize(qBound(1, p, 400) / 2.0);
        else if (w == "cf")
            setColour(hasParam ? p : 0);
        else if (w == "plain")
            m_state.chars = QTextCharFormat();
        else if (w == "pard" || w == "ql")
            setAlignment(Qt::AlignLeft);
        else if (w == "qc")
            setAlignment(Qt::AlignHCenter);
        else if (w == "qr")
            setAlignment(Qt::AlignRight);
        else if (w == "qj")
            setAlignment(Qt::AlignJustify);
        else if (w == "uc" && hasParam)
            m_state.unicodeSkip = qBound(0, p, 8);
        else if (w == "u" && hasParam)
            unicode(p);
        else if (w == "emdash")
            text(QString(QChar(0x2014)));
        else if (w == "endash")
            text(QString(QChar(0x2013)));
        else if (w == "lquote")
            text(QString(QChar(0x2018)));
        else if (w == "rquote")
            text(QString(QChar(0x2019)));
        else if (w == "ldblquote")
            text(QString(QChar(0x201C)));
        else if (w == "rdblquote")
            text(QString(QChar(0x201D)));
        else if (w == "bullet")
            text(QString(QChar(0x2022)));
        // Everything else (fonts, margins, spacing, ...) is left to the defaults.
    }

    void unicode(int p)
    {
        const int code = p < 0 ? p + 65536 : p;
        if (code > 0 && code < 65536 && !QChar::isSurrogate(static_cast<char32_t>(code)))
            text(QString(QChar(static_cast<char16_t>(code))));
        m_skipPending = m_state.unicodeSkip;
    }

    bool hidden() const { return m_state.hidden || m_overflow > 0; }

    void paragraph()
    {
        if (hidden())
            return;
        flush();
        if (full())
            return;
        ++m_pieces;
        m_cursor.insertBlock();
        setAlignment(m_state.alignment);
    }

    void setAlignment(Qt::Alignment alignment)
    {
        m_state.alignment = alignment;
        if (hidden())
            return;
        QTextBlockFormat block = m_cursor.blockFormat();
        if (block.alignment() != alignment) {
            block.setAlignment(alignment);
            m_cursor.setBlockFormat(block);
        }
    }

    void setColour(int index)
    {
        if (index > 0 && index < m_colours.size() && m_colours.at(index).isValid())
            m_state.chars.setForeground(m_colours.at(index));
        else
            m_state.chars.clearForeground();
    }

    void endColour()
    {
        // An entry without parts is the "automatic" colour.
        m_colours.push_back(m_hasColourPart ? QColor(qBound(0, m_red, 255), qBound(0, m_green, 255),
                                                     qBound(0, m_blue, 255))
                                            : QColor());
        m_red = m_green = m_blue = 0;
        m_hasColourPart = false;
    }

    static bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
    static bool isDigit(char c) { return c >= '0' && c <= '9'; }

    const QByteArray &m_in;
    qsizetype m_at = 0;
    QTextCursor m_cursor;
    QString m_family; // the document's, whose upright faces italics slant
    GroupState m_state;
    QVector<GroupState> m_stack;
    QString m_pending;
    int m_pieces = 0; // runs of text and paragraphs put into the document
    qsizetype m_characters = 0;
    int m_skipPending = 0;
    int m_overflow = 0;
    QVector<QColor> m_colours;
    int m_red = 0, m_green = 0, m_blue = 0;
    bool m_hasColourPart = false;
};

} // namespace

bool readRtf(const QByteArray &rtf, QTextDocument *document)
{
    document->clear();
    document->setUndoRedoEnabled(false); // a guide is read, never edited: no history to keep
    if (!rtf.startsWith("{\\rtf"))
        return false;
    RtfParser(rtf, document).run();
    return true;
}

} // namespace amorra
