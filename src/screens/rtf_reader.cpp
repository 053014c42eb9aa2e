#include "rtf_reader.h"

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
    {
    }

    void run()
    {
        while (m_at < m_in.size()) {
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
        const std::string utf8 = fromCp1252(std::string(1, c));
        text(QString::fromUtf8(utf8.data(), static_cast<int>(utf8.size())));
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
        if (m_pending.isEmpty())
            return;
        m_cursor.insertText(m_pending, m_state.chars);
        m_pending.clear();
    }

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
            const std::string utf8 = fromCp1252(std::string(1, static_cast<char>(byte)));
            text(QString::fromUtf8(utf8.data(), static_cast<int>(utf8.size())));
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
    GroupState m_state;
    QVector<GroupState> m_stack;
    QString m_pending;
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
    if (!rtf.startsWith("{\\rtf"))
        return false;
    RtfParser(rtf, document).run();
    return true;
}

} // namespace amorra
