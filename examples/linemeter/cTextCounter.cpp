#include "cTextCounter.h"

#include <algorithm>

namespace {

unsigned int byteAt(char const* data, unsigned int index)
{
    return static_cast<unsigned char>(data[index]);
}

// The length of the character that a byte begins, 0 when it begins none.
unsigned int lengthByLead(unsigned int lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xc2 && lead <= 0xdf)
        return 2;
    if (lead >= 0xe0 && lead <= 0xef)
        return 3;
    return lead >= 0xf0 && lead <= 0xf4 ? 4 : 0;
}

// The second byte shuts out what could be written shorter, surrogates, and what lies beyond the last plane.
bool isSecondByte(unsigned int lead, unsigned int second)
{
    unsigned int const least = lead == 0xe0 ? 0xa0 : lead == 0xf0 ? 0x90 : 0x80;
    unsigned int const most = lead == 0xed ? 0x9f : lead == 0xf4 ? 0x8f : 0xbf;
    return second >= least && second <= most;
}

enum CharacterState { csGood, csBad, csCutOff };

CharacterState examine(char const* data, unsigned int size, unsigned int& length)
{
    unsigned int const lead = byteAt(data, 0);
    length = lengthByLead(lead);
    if (length == 0)
        return csBad;
    for (unsigned int i = 1; i < length; ++i) {
        if (i == size)
            return csCutOff;
        unsigned int const byte = byteAt(data, i);
        if (i == 1 ? !isSecondByte(lead, byte) : (byte & 0xc0) != 0x80)
            return csBad;
    }
    return csGood;
}

} // namespace

void cTextCounter::add(char const* data, unsigned int size)
{
    if (size == 0)
        return;
    miBytes += size;
    miLines += static_cast<unsigned long long>(std::count(data, data + size, '\n'));
    mbInLine = data[size - 1] != '\n';

    if (maRest.length() == 0) {
        unsigned int const done = decode(data, size);
        maRest.append(data + done, size - done);
        return;
    }
    maRest.append(data, size);
    unsigned int const done = decode(maRest.data(), maRest.length());
    maRest.erase(0, done);
}

void cTextCounter::finish()
{
    miLines += mbInLine;
    mbInLine = false;
    miBadBytes += maRest.length();
    maRest.clear();
}

// Returns the number of bytes dealt with; what follows is the beginning of a character.
unsigned int cTextCounter::decode(char const* data, unsigned int size)
{
    unsigned int runStart = 0;
    unsigned int at = 0;
    while (at < size) {
        unsigned int length = 0;
        CharacterState const state = examine(data + at, size - at, length);
        if (state == csCutOff)
            break;
        if (state == csGood && data[at] != 0) {
            at += length;
            continue;
        }
        // Neither a bad byte nor a zero can go through the codec.
        decodeRun(data, runStart, at);
        ++(state == csGood ? miCodePoints : miBadBytes);
        runStart = ++at;
    }
    decodeRun(data, runStart, at);
    return at;
}

void cTextCounter::decodeRun(char const* data, unsigned int start, unsigned int end)
{
    if (start == end)
        return;
    msDecoded.truncate(0);
    nstd::tArray<char> const run(data + start, end - start);
    mCodec.decode(run, msDecoded);
    miCodePoints += msDecoded.length();
}
