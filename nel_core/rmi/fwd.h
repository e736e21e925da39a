#pragma once

/// Forward declarations of the folder, and the only place of the numbered names.
namespace nrmi {

class cConnectable;
class cAbstractSignal;
class cAbstractLocalSignal;
class cAbstractSlotCall;
class cAbstractRMIFactory;
class cSSValue;
class cPublicDescription;
class cPublicSignal;
class cPublicSlot;

class cRMIExceptions;
class cUnconnectedSignalException;
class cNoSuchSignalException;
class cNoSuchSlotException;
class cCallParameterMissmatchException;

template<typename R, typename... A>
class tLocalSignal;
template<typename R, typename... A>
class tAbstractSlotCall;
template<typename T, typename R, typename... A>
class tDirectLocalSlotCall;
template<typename T, typename R, typename... A>
class tPublicLocalSlotCall;
template<typename R>
class signal0;
template<typename R>
class cIndirectLazySlotCall0;
template<typename R>
class cIndirectResolvingSlotCall0;

/// Signals by the number of their arguments; `R` is what emission and slots return, normally piVoid.
template<typename R>
using localSignal0 = tLocalSignal<R>;
template<typename R, typename A1>
using localSignal1 = tLocalSignal<R, A1>;
template<typename R, typename A1, typename A2>
using localSignal2 = tLocalSignal<R, A1, A2>;
template<typename R, typename A1, typename A2, typename A3>
using localSignal3 = tLocalSignal<R, A1, A2, A3>;

/// What can be connected to the signal of the same number and types.
template<typename R>
using cAbstractSlotCall0 = tAbstractSlotCall<R>;
template<typename R, typename A1>
using cAbstractSlotCall1 = tAbstractSlotCall<R, A1>;
template<typename R, typename A1, typename A2>
using cAbstractSlotCall2 = tAbstractSlotCall<R, A1, A2>;
template<typename R, typename A1, typename A2, typename A3>
using cAbstractSlotCall3 = tAbstractSlotCall<R, A1, A2, A3>;

/// Calls of a member function of a `T`; nrmi::slot() makes them without spelling the types.
template<typename T, typename R>
using cDirectLocalSlotCall0 = tDirectLocalSlotCall<T, R>;
template<typename T, typename R, typename A1>
using cDirectLocalSlotCall1 = tDirectLocalSlotCall<T, R, A1>;
template<typename T, typename R, typename A1, typename A2>
using cDirectLocalSlotCall2 = tDirectLocalSlotCall<T, R, A1, A2>;
template<typename T, typename R, typename A1, typename A2, typename A3>
using cDirectLocalSlotCall3 = tDirectLocalSlotCall<T, R, A1, A2, A3>;

/// Direct calls that can also be made by name; nrmi::publishSlot() makes and registers them.
template<typename T, typename R>
using cPublicLocalSlotCall0 = tPublicLocalSlotCall<T, R>;
template<typename T, typename R, typename A1>
using cPublicLocalSlotCall1 = tPublicLocalSlotCall<T, R, A1>;
template<typename T, typename R, typename A1, typename A2>
using cPublicLocalSlotCall2 = tPublicLocalSlotCall<T, R, A1, A2>;
template<typename T, typename R, typename A1, typename A2, typename A3>
using cPublicLocalSlotCall3 = tPublicLocalSlotCall<T, R, A1, A2, A3>;

} // namespace nrmi
