// Any bytes in "qsguide.rtf" must give a guide window something to show,
// or nothing at all, but never a crash or a hang.
#include "screens/rtf_reader.h"

#include <QGuiApplication>
#include <QTextDocument>

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_rtf";
    static char *argv[] = {name, nullptr};
    static const bool offscreen = qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication app(argc, argv); // fonts for the document
    QTextDocument document;
    const bool ok = amorra::readRtf(QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)), &document);
    if (!ok && !document.isEmpty())
        std::abort(); // "not RTF" must leave the guide empty
    document.toPlainText();
    (void)offscreen;
    return 0;
}
