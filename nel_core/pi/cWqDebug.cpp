#include "nel_core/pi/cWqDebug.h"

#include <cstdint>

#include "nel_core/pi/cSystem.h"
#include "nel_core/pi/cWork.h"
#include "nel_core/pi/cWorkQueue.h"
#include "nel_core/pi/workTime.h"
#include "nel_core/std/cAsciiStringStream.h"
#include "nel_core/std/cNumberConversionFormat.h"

namespace npi {
namespace {

// Separates the lines of a label.
constexpr char kLabelBreak[] = "\\n";

char const* typeText(cWork const& work)
{
    switch (work.type()) {
    case cWork::Periodic: return "Periodic";
    case cWork::AsynchronousIO: return "Asynchronous I/O";
    case cWork::SingleTask: return "Single task";
    }
    return "Unknown";
}

void addId(nstd::cAsciiString& out, cWork const& work)
{
    nstd::cNumberConversionFormat const hexadecimal(16);
    out += '"';
    out.addUNum(static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(&work)), hexadecimal);
    out += '"';
}

void addFlag(nstd::cAsciiString& detail, char const* flag)
{
    if (detail.length() != 0)
        detail += ", ";
    detail += flag;
}

nstd::cAsciiString detailOf(cWork const& work, bool isCurrent)
{
    nstd::cNumberConversionFormat const decimal(10);
    nstd::cAsciiString detail;
    if (work.type() == cWork::Periodic) {
        detail.addUNum32(work.interval(), decimal);
        detail += "ms interval)";
    } else if (work.type() == cWork::SingleTask) {
        detail += "planned in ";
        detail.addNum(millisecondsUntil(work.plannedTime(), nstd::cTime()), decimal);
        detail += "ms";
    }
    if (work.isAmuck())
        addFlag(detail, "AMUCK");
    else if (work.isStarted())
        addFlag(detail, "Active");
    if (work.isKeep())
        addFlag(detail, "Keep");
    if (isCurrent)
        addFlag(detail, "Current");
    return detail;
}

nstd::cAsciiString labelOf(cWork const& work, bool isCurrent)
{
    nstd::cAsciiString label(typeText(work));
    label << kLabelBreak << work.name();
    nstd::cAsciiString const detail = detailOf(work, isCurrent);
    if (detail.length() != 0)
        label << kLabelBreak << "(" << detail << ")";
    return label;
}

char const* colorOf(cWork const& work, bool isCurrent)
{
    if (work.type() == cWork::AsynchronousIO)
        return "PapayaWhip";
    if (isCurrent)
        return "LightSteelBlue";
    if (work.isAmuck())
        return "red";
    return work.isStarted() ? "grey" : "lightgrey";
}

void addNode(nstd::cAsciiString& out, cWork const& work, bool isCurrent)
{
    addId(out, work);
    out << " [ label=\"" << labelOf(work, isCurrent) << "\",shape=\""
        << (isCurrent ? "doubleoctagon" : "ellipse") << "\",style=\"filled\",color=\""
        << colorOf(work, isCurrent) << "\" ];\n";
}

void addEdge(nstd::cAsciiString& out, cWork const& parent, cWork const& work)
{
    addId(out, parent);
    out << " -> ";
    addId(out, work);
    out << ";\n";
}

} // namespace

nstd::cAsciiString cWqDebug::dot(cWorkQueue* queue)
{
    nstd::cAsciiString out;
    dotDump(out, queue ? *queue : system().workQueue);
    return out;
}

void dotDump(nstd::cAsciiString& out, cWorkQueue& queue)
{
    out = "digraph G {\n";
    for (nstd::tSharedObject<cWork> const& job : queue.jobs()) {
        if (job)
            addNode(out, *job, job.get() == queue.current());
    }
    for (nstd::tSharedObject<cWork> const& job : queue.jobs()) {
        if (job && job->parent())
            addEdge(out, *job->parent(), *job);
    }
    out << "}\n";
}

} // namespace npi
