#pragma once

namespace nstd {

/// Tells code that calls handlers whether an object still lives afterwards.
///
/// A mark stands on the stack of the caller and is linked to those outside it; the object has a pointer to
/// the innermost one, and its destructor ends all of them. There is no allocation.
///
///     nstd::cLife const life(mpLives);
///     sigDone();
///     if (!life)
///         return; // nothing of this object may be touched
class cLife {
public:
    // The compiler cannot see that the destructor takes the address back wherever the object still lives.
#if __GNUC__ >= 12
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdangling-pointer"
#endif
    /// `innermost` is the object's pointer, null when nobody calls.
    explicit cLife(cLife*& innermost) noexcept : mpInnermost(&innermost), mpOuter(innermost)
    {
        innermost = this;
    }
#if __GNUC__ >= 12
#pragma GCC diagnostic pop
#endif
    cLife(cLife const&) = delete;
    cLife& operator=(cLife const&) = delete;
    ~cLife()
    {
        if (mpInnermost)
            *mpInnermost = mpOuter;
    }

    /// Ends all marks of an object: for its destructor.
    static void end(cLife*& innermost) noexcept
    {
        for (cLife* life = innermost; life; life = life->mpOuter)
            life->mpInnermost = nullptr;
        innermost = nullptr;
    }
    /// Whether the object lives.
    explicit operator bool() const noexcept
    {
        return mpInnermost != nullptr;
    }

private:
    cLife** mpInnermost; ///< of the object; null once that is gone
    cLife* mpOuter;
};

} // namespace nstd
