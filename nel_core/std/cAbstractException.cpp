#include "nel_core/std/cAbstractException.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

#include "nel_core/ncs/cComponentLocation.h"
#include "nel_core/pi/breakPoint.h"
#include "nel_core/pi/cDebugEntry.h"
#include "nel_core/pi/cPlatform.h"
#include "nel_core/pi/piStackTrace.h"
#include "nel_core/sa/saOperators.h"
#include "nel_core/std/cAbstractExceptionFactory.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/piAssert.h"
#include "nel_core/std/raise.h"
#include "nel_core/ucs/cLILocale.h"
#include "nel_core/ucs/cLIMessage.h"
#include "nel_core/ucs/cString.h"

namespace nstd {
namespace {

// The exception that is being copied without its history: its createObject() knows nothing of that wish, only
// getHistory() at its end does. Set aside in static storage, because memory may be what is missing.
__attribute__((tls_model("initial-exec"))) thread_local cAbstractException const* tpCopiedAlone = nullptr;

void copyText(char* target, char const* text, std::size_t max)
{
    std::memcpy(target, text, ::strnlen(text, max));
}

void obeyEnvironment(char const* tag, unsigned int line)
{
    char const* const wish = npi::cPlatform::tryGetEnv("NE");
    if (!wish)
        return;
    if (std::strcmp(wish, "dump") == 0)
        writeStackTrace(tag, line);
    else if (std::strcmp(wish, "break") == 0)
        npi::breakPoint();
}

// Lets a text of any length grow by an eighth at least, instead of by small steps.
void adaptGrowth(nucs::cString& text)
{
    while (text.length() >> text.growStep() > 8)
        text.setGrowStep(text.growStep() + 1);
}

bool loadBool(nsa::cAbstractDeserializer& deserializer)
{
    bool value = false;
    value << deserializer;
    return value;
}

// The object that follows its type name in a stream; empty when there is none of that name or it cannot be
// loaded.
tAutoPtr<cAbstractException> tryLoad(cAsciiString const& typeName, nsa::cAbstractDeserializer& deserializer,
                                     cAbstractExceptionFactory const& factory)
{
    try {
        auto loaded = factory.createException(typeName);
        if (loaded)
            loaded->load(deserializer);
        if (loaded && loaded.pointerType() != tAutoPtrType::ptObject) // a chain cannot own it
            loaded.reinit(loaded->createObject(), tAutoPtrType::ptObject);
        return loaded;
    } catch (cAbstractException const&) {
        return tAutoPtr<cAbstractException>();
    }
}

tAutoPtr<cAbstractException> unknownType(cAsciiString const& typeName)
{
    return tAutoPtr<cAbstractException>(
        new cRuntimeException(makeMessage("$MTR$Unknown exception type %s%!", typeName)));
}

} // namespace

cAbstractException::cAbstractException(char const* kindWord, Type type, char const* file, unsigned int line)
    : miSourceLine(line),
      meType(type)
{
    if (file)
        copyText(msSourceFile, file, kSourceFileMax);
    copyText(msKind, kindWord, sizeof(msKind) - 1);
    piBackTrace(maBacktrace, kTraceSize);
    obeyEnvironment(NEL_SOURCE_TAG, __LINE__);
}

cAbstractException::cAbstractException(cAbstractException const& other)
{
    copyOwnFields(other);
    mpRemoteLocation = other.copyRemoteLocation(mbOutOfMemory);
    mpHistory = other.getHistory(mbOutOfMemory);
}

cAbstractException::cAbstractException(cAbstractException&& other) noexcept
{
    copyOwnFields(other);
    mpHistory = std::exchange(other.mpHistory, nullptr);
    mpRemoteLocation = std::exchange(other.mpRemoteLocation, nullptr);
}

cAbstractException::~cAbstractException()
{
    deleteChain(mpHistory);
    delete mpRemoteLocation;
}

cAbstractException& cAbstractException::operator=(cAbstractException const& other)
{
    if (&other == this)
        return *this;
    bool outOfMemory = other.mbOutOfMemory;
    auto* const history = other.getHistory(outOfMemory);
    auto* const location = other.copyRemoteLocation(outOfMemory);
    copyOwnFields(other);
    mbOutOfMemory = outOfMemory;
    delete std::exchange(mpRemoteLocation, location);
    deleteChain(std::exchange(mpHistory, history)); // last: `other` may be a part of it
    return *this;
}

void cAbstractException::swap(cAbstractException& other) noexcept
{
    std::swap(msSourceFile, other.msSourceFile);
    std::swap(miSourceLine, other.miSourceLine);
    std::swap(msKind, other.msKind);
    std::swap(meType, other.meType);
    std::swap(mpHistory, other.mpHistory);
    std::swap(mbOutOfMemory, other.mbOutOfMemory);
    std::swap(mpRemoteLocation, other.mpRemoteLocation);
    std::swap(maBacktrace, other.maBacktrace);
}

nucs::cLIMessage const* cAbstractException::liMessage() const
{
    return nullptr;
}

void cAbstractException::dialog() const { }

bool cAbstractException::isRemote() const
{
    return mpRemoteLocation != nullptr;
}

ncs::cComponentLocation const& cAbstractException::remoteLocation() const
{
    NEL_ASSERT(mpRemoteLocation != 0);
    return *mpRemoteLocation;
}

void cAbstractException::dump() const
{
    for (auto* exception = this; exception; exception = exception->mpHistory)
        exception->dumpLine();
}

void cAbstractException::store(nsa::cAbstractSerializer& serializer) const
{
    typeName() >> serializer;
    static_cast<unsigned int>(meType) >> serializer;
    outOfMemoryCondition() >> serializer;
}

void cAbstractException::load(nsa::cAbstractDeserializer& deserializer)
{
    unsigned int type = tyBug;
    type << deserializer;
    meType = type == tyBug ? tyBug : tyRuntime;
    mbOutOfMemory << deserializer;
}

bool cAbstractException::outOfMemoryCondition() const
{
    return mbOutOfMemory;
}

void cAbstractException::link(cAbstractException* exception)
{
    if (exception && !isInChain(*exception) && !exception->isInChain(*this))
        last().mpHistory = exception;
}

void cAbstractException::link(cAbstractException const& exception)
{
    if (isInChain(exception))
        return;
    try {
        last().mpHistory = exception.createObject();
    } catch (std::bad_alloc const&) {
        last().mbOutOfMemory = true;
    }
}

cAbstractException* cAbstractException::getHistory(bool& outOfMemory) const
{
    cAbstractException* first = nullptr;
    cAbstractException** end = &first;
    bool* lost = &outOfMemory; // of the exception whose history *end is
    auto const* source = this == tpCopiedAlone ? nullptr : mpHistory;
    for (; source; source = source->mpHistory) {
        auto* const copy = copyAlone(*source, *lost);
        *end = copy;
        if (!copy || copy->mpHistory) // a class may bring its history along in its own way
            break;
        end = &copy->mpHistory;
        lost = &copy->mbOutOfMemory;
    }
    return first;
}

void cAbstractException::setRemoteInfo(ncs::cComponentLocation const& location)
{
    auto* const copy = new ncs::cComponentLocation(location);
    delete std::exchange(mpRemoteLocation, copy);
}

void cAbstractException::storeRecursive(nsa::cAbstractSerializer& serializer) const
{
    npi::cDebugEntry(NEL_SOURCE_TAG, __LINE__) << "cAbstractException::storeRecursive";
    for (auto* exception = this; exception; exception = exception->mpHistory) {
        true >> serializer;
        exception->store(serializer);
    }
    false >> serializer;
}

tAutoPtr<cAbstractException> cAbstractException::createFromStream(nsa::cAbstractDeserializer& deserializer,
                                                                  cAbstractExceptionFactory const& factory)
{
    tAutoPtr<cAbstractException> first;
    cAbstractException* end = nullptr; // the last of the chain: walking there each time would be quadratic
    bool isLast = false;
    while (!isLast && loadBool(deserializer)) {
        cAsciiString name;
        name << deserializer;
        auto loaded = tryLoad(name, deserializer, factory);
        isLast = !loaded;
        if (isLast)
            loaded = unknownType(name);
        if (end)
            end->link(loaded.release());
        else
            first = loaded;
        end = end ? &end->last() : &first->last();
    }
    return first;
}

bool cAbstractException::hasOutOfMemoryCondition() const
{
    auto const* exception = this;
    while (exception && !exception->outOfMemoryCondition())
        exception = exception->mpHistory;
    return exception != nullptr;
}

cAbstractException const* cAbstractException::has(cAsciiString const& name) const
{
    auto const* exception = this;
    while (exception && exception->typeName() != name)
        exception = exception->mpHistory;
    return exception;
}

void cAbstractException::createMessage(nucs::cString& out, nucs::cString const& separator, unsigned int flags,
                                       nucs::cLILocale const* locale) const
{
    nucs::cString text;
    nucs::cString indentation;
    unsigned int repeatable = nucs::cLIMessage::kRepeatedMax;
    auto const growStep = text.growStep();
    appendMessage(text, locale, repeatable);
    for (auto const* cause = flags & mfHistory ? mpHistory : nullptr; cause; cause = cause->mpHistory) {
        text += separator;
        if (flags & mfIndent) {
            indentation.appendC(" ");
            if (indentation.length() <= repeatable) {
                text += indentation;
                repeatable -= indentation.length();
            }
        }
        cause->appendMessage(text, locale, repeatable);
        adaptGrowth(text);
    }
    text.setGrowStep(growStep);
    out = std::move(text);
}

void cAbstractException::createMessage(cAbstractException const& exception, nucs::cString& out, unsigned int,
                                       nucs::cLILocale const* locale)
{
    unsigned int repeatable = nucs::cLIMessage::kRepeatedMax;
    exception.appendMessage(out, locale, repeatable);
}

// Not by recursion through the destructors: a chain may be longer than the stack is deep.
void cAbstractException::deleteChain(cAbstractException* first)
{
    while (first) {
        auto* const next = std::exchange(first->mpHistory, nullptr);
        delete first;
        first = next;
    }
}

cAbstractException* cAbstractException::copyAlone(cAbstractException const& source,
                                                  bool& outOfMemory) noexcept
{
    auto const* const outer = std::exchange(tpCopiedAlone, &source);
    cAbstractException* copy = nullptr;
    try {
        copy = source.createObject();
    } catch (std::bad_alloc const&) {
        outOfMemory = true;
    } catch (...) {
        // losing a cause must not lose the failure
    }
    tpCopiedAlone = outer;
    return copy;
}

ncs::cComponentLocation* cAbstractException::copyRemoteLocation(bool& outOfMemory) const
{
    try {
        return mpRemoteLocation ? new ncs::cComponentLocation(*mpRemoteLocation) : nullptr;
    } catch (std::bad_alloc const&) {
        outOfMemory = true;
        return nullptr;
    }
}

void cAbstractException::copyOwnFields(cAbstractException const& other) noexcept
{
    std::memcpy(msSourceFile, other.msSourceFile, sizeof(msSourceFile));
    miSourceLine = other.miSourceLine;
    std::memcpy(msKind, other.msKind, sizeof(msKind));
    meType = other.meType;
    mbOutOfMemory = other.mbOutOfMemory;
    std::memcpy(maBacktrace, other.maBacktrace, sizeof(maBacktrace));
}

cAbstractException& cAbstractException::last()
{
    auto* exception = this;
    while (exception->mpHistory)
        exception = exception->mpHistory;
    return *exception;
}

bool cAbstractException::isInChain(cAbstractException const& exception) const
{
    auto const* member = this;
    while (member && member != &exception)
        member = member->mpHistory;
    return member != nullptr;
}

// Translated texts, too, may take what is repeatable; when it is used up, the untranslated ones follow.
void cAbstractException::appendMessage(nucs::cString& out, nucs::cLILocale const* locale,
                                       unsigned int& repeatable) const
{
    auto const* const message = liMessage();
    if (!message) {
        out.appendC(what());
        return;
    }
    nucs::cString text;
    if (locale && repeatable != 0) {
        locale->translate(*message, text, nullptr);
        repeatable -= std::min(repeatable, text.length());
    } else {
        message->untranslated(text, repeatable);
    }
    out += text;
}

void cAbstractException::dumpLine() const
{
    cAsciiString text(what());
    if (auto const* const message = liMessage())
        message->untranslated(text);
    else if (text.length() == 0)
        text = " --- no message ---";

    cAsciiString line("[");
    line += typeName();
    line += meType == tyBug ? " (bug)" : " (runtime)";
    line += "]: ";
    line += text;
    npi::cDebugEntry(NEL_SOURCE_TAG, __LINE__) << line;
}

} // namespace nstd
