#include "Ids.h"

#include <QRandomGenerator>

#include <array>

QUuid freshId()
{
    std::array<quint32, 4> words;
    QRandomGenerator::global()->fillRange(words.data(), words.size());
    QUuid id;
    id.data1 = words[0];
    id.data2 = ushort(words[1] >> 16);
    id.data3 = ushort((words[1] & 0x0fff) | 0x4000); // version 4
    const quint32 w2 = (words[2] & 0x3fffffff) | 0x80000000; // RFC 4122 variant
    id.data4[0] = uchar(w2 >> 24);
    id.data4[1] = uchar(w2 >> 16);
    id.data4[2] = uchar(w2 >> 8);
    id.data4[3] = uchar(w2);
    id.data4[4] = uchar(words[3] >> 24);
    id.data4[5] = uchar(words[3] >> 16);
    id.data4[6] = uchar(words[3] >> 8);
    id.data4[7] = uchar(words[3]);
    return id;
}
