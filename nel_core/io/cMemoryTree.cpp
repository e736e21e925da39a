#include "nel_core/io/cMemoryTree.h"

#include <algorithm>
#include <cerrno>

#include "nel_core/io/cPermissions.h"

namespace nio {
namespace {

constexpr unsigned int kFilePermissions = cPermissions::pmOwnerRead | cPermissions::pmOwnerWrite
                                          | cPermissions::pmGroupRead | cPermissions::pmOthersRead;
constexpr unsigned int kDirectoryPermissions = kFilePermissions | cPermissions::pmOwnerExecute
                                               | cPermissions::pmGroupExecute | cPermissions::pmOthersExecute;

// Takes the next component off; empty at the end.
std::u32string_view takeComponent(std::u32string_view& path)
{
    path.remove_prefix(std::min(path.find_first_not_of(U'/'), path.size()));
    auto const component = path.substr(0, path.find(U'/'));
    path.remove_prefix(component.size());
    return component;
}

void touch(cMemoryNode& node)
{
    node.modified = nstd::cTime();
    node.changed = node.modified;
}

bool isInside(tMemoryNode directory, tMemoryNode const& ancestor)
{
    for (; directory; directory = directory->parent.lock()) {
        if (directory == ancestor)
            return true;
    }
    return false;
}

int refusalOfReplacing(cMemoryNode const& target, cMemoryNode const& moved)
{
    if (moved.isDirectory && !target.isDirectory)
        return ENOTDIR;
    if (!moved.isDirectory && target.isDirectory)
        return EISDIR;
    return target.entries.empty() ? 0 : ENOTEMPTY;
}

int refusalOfMoving(cMemoryPlace const& from, cMemoryPlace const& to)
{
    if (!from.node)
        return from.error;
    if (!from.directory)
        return EBUSY; // the root, or "." or ".."
    if (!to.directory)
        return to.node ? EBUSY : to.error;
    if (to.asDirectory && !from.node->isDirectory)
        return ENOTDIR;
    if (from.node->isDirectory && isInside(to.directory, from.node))
        return EINVAL;
    return to.node && to.node != from.node ? refusalOfReplacing(*to.node, *from.node) : 0;
}

// Goes to an entry of what `place` leads to.
void step(cMemoryPlace& place, std::u32string_view name)
{
    tMemoryNode const from = place.node;
    place.directory = tMemoryNode();
    if (!from)
        return; // what is missing stays missing
    if (!from->isDirectory) {
        place.node = tMemoryNode();
        place.error = ENOTDIR;
        return;
    }
    if (name == U".")
        return;
    if (name == U"..") {
        if (auto const parent = from->parent.lock())
            place.node = parent;
        return;
    }
    auto const index = from->find(name);
    bool const isThere = index < from->entries.size();
    place.node = isThere ? from->entries[index].node : tMemoryNode();
    place.error = isThere ? 0 : ENOENT;
    place.directory = from;
    place.name = nucs::cString(name);
}

void addEntry(cMemoryNode& directory, cMemoryEntry const& entry)
{
    directory.entries.insert(directory.placeOf(entry.name), entry);
    touch(directory);
}

} // namespace

cMemoryNode::cMemoryNode(bool directory)
    : isDirectory(directory),
      permissions(directory ? kDirectoryPermissions : kFilePermissions),
      modified(accessed),
      changed(accessed)
{
}

unsigned int cMemoryNode::placeOf(std::u32string_view name) const
{
    unsigned int first = 0, last = entries.size();
    while (first < last) {
        auto const middle = first + (last - first) / 2;
        if (std::u32string_view(entries[middle].name) < name)
            first = middle + 1;
        else
            last = middle;
    }
    return first;
}

unsigned int cMemoryNode::find(std::u32string_view name) const
{
    auto const place = placeOf(name);
    return place < entries.size() && std::u32string_view(entries[place].name) == name ? place
                                                                                      : entries.size();
}

cMemoryTree::cMemoryTree(nucs::cString const& prefix) : msPrefix(prefix), mpRoot(new cMemoryNode(true)) { }

cMemoryTree::~cMemoryTree()
{
    empty(mpRoot);
}

bool cMemoryTree::isPrefix(nucs::cString const& path) const
{
    std::u32string_view const prefix = msPrefix, text = path;
    return text == prefix || text == prefix.substr(0, prefix.size() - 1);
}

bool cMemoryTree::isBelow(nucs::cString const& path) const
{
    if (isPrefix(path))
        return true;
    std::u32string_view rest = path;
    if (rest.substr(0, msPrefix.length()) != std::u32string_view(msPrefix))
        return false;
    rest.remove_prefix(msPrefix.length());
    for (unsigned int depth = 0;;) {
        auto const name = takeComponent(rest);
        if (name.empty())
            return true;
        if (name == U"..") {
            if (depth-- == 0)
                return false;
        } else if (name != U".") {
            ++depth;
        }
    }
}

cMemoryPlace cMemoryTree::find(nucs::cString const& path) const
{
    cMemoryPlace place;
    if (path.contains(0u))
        place.error = EINVAL;
    else if (!isBelow(path))
        place.error = ENOENT;
    if (place.error != 0)
        return place;

    place.node = mpRoot;
    std::u32string_view rest = path;
    rest.remove_prefix(std::min<std::size_t>(rest.size(), msPrefix.length()));
    while (!rest.empty() && place.error != ENOTDIR) {
        auto const name = takeComponent(rest);
        if (name.empty())
            break;
        step(place, name);
    }
    place.asDirectory = place.directory && path[path.length() - 1] == '/';
    if (place.asDirectory && place.node && !place.node->isDirectory) {
        cMemoryPlace wrong;
        wrong.error = ENOTDIR;
        return wrong;
    }
    return place;
}

tMemoryNode cMemoryTree::create(cMemoryPlace const& place, bool directory)
{
    cMemoryEntry const entry{place.name, tMemoryNode(new cMemoryNode(directory))};
    if (directory)
        entry.node->parent = place.directory;
    addEntry(*place.directory, entry);
    return entry.node;
}

int cMemoryTree::remove(cMemoryPlace const& place)
{
    if (!place.node)
        return place.error;
    if (!place.directory)
        return EBUSY;
    if (!place.node->entries.empty())
        return ENOTEMPTY;
    removeEntry(*place.directory, place.name);
    return 0;
}

int cMemoryTree::rename(cMemoryPlace const& from, cMemoryPlace const& to)
{
    int const refusal = refusalOfMoving(from, to);
    if (refusal != 0 || to.node == from.node)
        return refusal;
    if (to.node) {
        to.directory->entries[to.directory->find(to.name)].node = from.node;
        touch(*to.directory);
    } else {
        addEntry(*to.directory, cMemoryEntry{to.name, from.node});
    }
    removeEntry(*from.directory, from.name);
    if (from.node->isDirectory)
        from.node->parent = to.directory;
    from.node->changed = nstd::cTime();
    return 0;
}

void cMemoryTree::removeTree(cMemoryNode& directory, std::u32string_view name) noexcept
{
    auto const index = directory.find(name);
    if (index == directory.entries.size())
        return;
    empty(directory.entries[index].node);
    removeEntry(directory, name);
}

// Goes down by the last entries and takes them off on the way up.
void cMemoryTree::empty(tMemoryNode const& directory) noexcept
{
    tMemoryNode at = directory;
    for (;;) {
        auto& entries = at->entries;
        if (!entries.empty()) {
            tMemoryNode const last = entries[entries.size() - 1].node;
            if (last->entries.empty())
                entries.remove(entries.size() - 1);
            else
                at = last;
        } else if (at == directory) {
            return;
        } else {
            at = at->parent.lock();
        }
    }
}

void cMemoryTree::removeEntry(cMemoryNode& directory, std::u32string_view name) noexcept
{
    auto const index = directory.find(name);
    directory.entries[index].node->changed = nstd::cTime();
    directory.entries.remove(index);
    touch(directory);
}

} // namespace nio
