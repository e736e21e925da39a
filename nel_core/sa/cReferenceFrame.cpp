#include "nel_core/sa/cReferenceFrame.h"

#include <algorithm>
#include <utility>

#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cSTDExceptions.h"
#include "nel_core/std/cTypeMissmatchException.h"

namespace nsa {
namespace {

char const* const kClassName = "cReferenceFrame";

// Marks a frame whose values are under way: one that holds itself would never come to an end.
class cTravel {
public:
    explicit cTravel(bool& mark) : mbMark(mark)
    {
        if (mbMark)
            cSAExceptions::throwUnserializable(kClassName);
        mbMark = true;
    }
    cTravel(cTravel const&) = delete;
    cTravel& operator=(cTravel const&) = delete;
    ~cTravel() { mbMark = false; }

private:
    bool& mbMark;
};

bool isSelected(cAbstractTypeReference const& entry, bool alterableOnly, bool readableOnly)
{
    return (!alterableOnly || entry.alterable()) && (!readableOnly || entry.readable());
}

} // namespace

template class cTypeReference<piVoid>;
template class cTypeReference<cReferenceFrame>;

cFrameEntry::~cFrameEntry() = default;

cReferenceFrame::cReferenceFrame()
{
    maMore.setGuardMode(nstd::tPtrVector<cFrameEntry>::gmOwn);
}

cReferenceFrame::cReferenceFrame(cReferenceFrame const& other) : cReferenceFrame()
{
    append_net(other);
}

cReferenceFrame& cReferenceFrame::operator=(cReferenceFrame const& other)
{
    cReferenceFrame copy(other);
    swap(copy);
    return *this;
}

cReferenceFrame::~cReferenceFrame() = default;

void cReferenceFrame::swap(cReferenceFrame& other) noexcept
{
    if (this == &other) {
        miCursor = 0;
        return;
    }
    cReferenceFrame kept;
    kept.takePlaces(*this);
    takePlaces(other);
    other.takePlaces(kept);
    maMore.swapWithOwnership(other.maMore);
}

// Takes over the entries that have no memory of their own; this frame has none of them.
void cReferenceFrame::takePlaces(cReferenceFrame& other) noexcept
{
    for (unsigned int i = 0; i < std::min(other.miCount, kOwnPlaces); ++i)
        other.entryAt(i).createAt(maPlaces[i].bytes);
    miCount = std::exchange(other.miCount, 0);
    miCursor = 0;
}

cReferenceFrame& cReferenceFrame::addRef(cReferenceFrame& frame, bool alterable, bool readable)
{
    bool const isAtEnd = !canRead();
    auto const cursor = miCursor;
    addRef<cReferenceFrame>(frame, alterable, readable);
    miCursor = isAtEnd ? miCount : cursor;
    return *this;
}

void cReferenceFrame::append(cReferenceFrame const& other)
{
    cReferenceFrame joined(*this);
    joined.append_net(other);
    swap(joined);
}

void cReferenceFrame::append_net(cReferenceFrame const& other)
{
    miCursor = 0;
    unsigned int const count = other.miCount; // of now: the other frame may be this one
    for (unsigned int i = 0; i < count; ++i)
        addCopy(other.entryAt(i));
}

cReferenceFrame& cReferenceFrame::addCopy(cFrameEntry const& entry)
{
    if (miCount < kOwnPlaces) {
        entry.createAt(maPlaces[miCount].bytes);
    } else {
        nstd::tAutoPtr<cFrameEntry> more(entry.createAt(::operator new(sizeof(cPlace))));
        maMore.append(more.get());
        static_cast<void>(more.release());
    }
    ++miCount;
    miCursor = 0;
    return *this;
}

// The frames that are reached form a chain, so that neither their depth nor a ring of them matters. The last
// one is linked to itself: whoever has a link has been reached.
void cReferenceFrame::restartReading()
{
    cReferenceFrame* last = mpNextRestarted = this;
    for (auto* frame = this;; frame = frame->mpNextRestarted) {
        frame->restartHere(last);
        if (frame == last)
            break;
    }
    for (auto* frame = this; frame;)
        frame = std::exchange(frame->mpNextRestarted, nullptr); // ends at the second visit of the last one
}

void cReferenceFrame::store(cAbstractSerializer& serializer) const
{
    store(serializer, false, false);
}

void cReferenceFrame::store(cAbstractSerializer& serializer, bool alterableOnly, bool readableOnly) const
{
    cTravel const travel(mbTravelling);
    try {
        for (unsigned int i = 0; i < miCount; ++i)
            if (isSelected(entryAt(i), alterableOnly, readableOnly))
                entryAt(i).store(serializer);
    } catch (nstd::cAbstractException const& cause) {
        cSAExceptions::throwSerializationError(cause, kClassName);
    }
}

void cReferenceFrame::load(cAbstractDeserializer& deserializer)
{
    load(deserializer, false, false);
}

void cReferenceFrame::load(cAbstractDeserializer& deserializer, bool alterableOnly, bool readableOnly)
{
    cTravel const travel(mbTravelling);
    try {
        for (unsigned int i = 0; i < miCount; ++i)
            if (isSelected(entryAt(i), alterableOnly, readableOnly))
                entryAt(i).load(deserializer);
    } catch (nstd::cAbstractException const& cause) {
        cSAExceptions::throwDeserializationError(cause, kClassName);
    }
}

void cReferenceFrame::loadLast(cAbstractDeserializer& deserializer)
{
    if (empty())
        return;
    cTravel const travel(mbTravelling);
    try {
        entryAt(miCount - 1).load(deserializer);
    } catch (nstd::cAbstractException const& cause) {
        cSAExceptions::throwDeserializationError(cause, kClassName);
    }
}

void cReferenceFrame::restartHere(cReferenceFrame*& last) noexcept
{
    miCursor = 0;
    for (unsigned int i = 0; i < miCount; ++i) {
        auto* const nested = entryAt(i).isSubReferenceFrame();
        if (!nested || nested->mpNextRestarted)
            continue;
        nested->mpNextRestarted = nested;
        last->mpNextRestarted = nested;
        last = nested;
    }
}

// The words are those of the list that a frame is.
void cReferenceFrame::raiseEnd(char const* operation)
{
    cSTDExceptions::throwOutOfBounds("tList", operation);
}

void cReferenceFrame::raiseMissmatch(char const* wanted, cAbstractTypeReference& found)
{
    throw nstd::cTypeMissmatchException(wanted, found.typeName());
}

cAbstractSerializer& operator>>(cReferenceFrame const& frame, cAbstractSerializer& serializer)
{
    frame.store(serializer);
    return serializer;
}

cAbstractDeserializer& operator<<(cReferenceFrame& frame, cAbstractDeserializer& deserializer)
{
    frame.load(deserializer);
    return deserializer;
}

} // namespace nsa
