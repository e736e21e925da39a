#pragma once

#include <cstddef>

#include "nel_core/sa/cAbstractContextData.h"
#include "nel_core/sa/cRecordPool.h"

namespace nsa {

/// The record of an open context of a binary stream: `Stream` is cSerializeBinary or cDeserializeBinary.
///
/// The open contexts of a stream are a chain from the innermost one outwards. A record leaves the chain when
/// the stream has nothing more to do for it: the context is closed, or the stream is gone.
template<typename Stream>
class tBinaryContext final : public cAbstractContextData {
public:
    /// Becomes the innermost context of `stream`. All positions are bytes from the start of the data.
    tBinaryContext(Stream& stream, unsigned int start, unsigned int bodyStart, unsigned int end,
                   bool isCut) noexcept
        : mpStream(&stream),
          mpParent(stream.mpContext),
          miStart(start),
          miBodyStart(bodyStart),
          miEnd(end),
          mbCut(isCut)
    {
        if (mpParent)
            mpParent->mpChild = this;
        stream.mpContext = this;
    }
    ~tBinaryContext() override
    {
        if (mpStream)
            mpStream->leave(*this);
    }

    static void* operator new(std::size_t size, Stream& stream)
    {
        return cRecordPool::take(stream.mpRecords, size);
    }
    static void operator delete(void* record) noexcept { cRecordPool::give(record); }
    static void operator delete(void* record, Stream&) noexcept { cRecordPool::give(record); }

    void release() override
    {
        if (mpStream)
            mpStream->release(*this);
    }

    unsigned int start() const noexcept { return miStart; }
    unsigned int bodyStart() const noexcept { return miBodyStart; }
    unsigned int end() const noexcept { return miEnd; }
    bool isCut() const noexcept { return mbCut; }
    bool isReleased() const noexcept { return mbReleased; }
    void setReleased() noexcept { mbReleased = true; }
    /// Whether it is the innermost one.
    bool isCurrent() const noexcept { return !mpChild; }

    /// Takes the record out of its stream's chain, wherever it stands there.
    void detach() noexcept
    {
        (mpChild ? mpChild->mpParent : mpStream->mpContext) = mpParent;
        if (mpParent)
            mpParent->mpChild = mpChild;
        mpStream = nullptr;
    }
    /// Empties the chain of a stream.
    static void detachAll(Stream& stream) noexcept
    {
        while (stream.mpContext)
            stream.mpContext->detach();
    }

private:
    Stream* mpStream;                  ///< null once out of the chain
    tBinaryContext* mpParent;          ///< the context around this one
    tBinaryContext* mpChild = nullptr; ///< the open one inside it
    unsigned int miStart;              ///< of the context's type id
    unsigned int miBodyStart;
    unsigned int miEnd; ///< of a context that is read
    bool mbCut;         ///< it claims to reach further than `miEnd`
    bool mbReleased = false;
};

} // namespace nsa
