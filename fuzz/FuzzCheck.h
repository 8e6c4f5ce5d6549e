#pragma once

#include <QByteArrayView>

#include <cstdio>
#include <cstdlib>

// A broken property is a finding: report it and stop, so that libFuzzer keeps the input.
#define FUZZ_CHECK(condition)                                                                                \
    do {                                                                                                     \
        if (!(condition)) {                                                                                  \
            std::fprintf(stderr, "%s:%d: property does not hold: %s\n", __FILE__, __LINE__, #condition);     \
            std::abort();                                                                                    \
        }                                                                                                    \
    } while (false)

inline QByteArrayView fuzzInput(const unsigned char *data, size_t size)
{
    return QByteArrayView(reinterpret_cast<const char *>(data), qsizetype(size));
}

// Whether a text holds a line break other than the line feed, where readers (which split at every
// Unicode break) and writers (which split at line feeds only) see different lines.
inline bool hasOtherBreaks(QByteArrayView text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto b = uchar(text[i]);
        if (b == 0x0b || b == 0x0c || b == 0x0d)
            return true;
        if (b == 0xc2 && i + 1 < text.size() && uchar(text[i + 1]) == 0x85)
            return true;
        if (b == 0xe2 && i + 2 < text.size() && uchar(text[i + 1]) == 0x80
            && (uchar(text[i + 2]) == 0xa8 || uchar(text[i + 2]) == 0xa9))
            return true;
    }
    return false;
}
