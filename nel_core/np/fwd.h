#pragma once

/// Forward declarations of the folder.
namespace np {

class cLocker;
class cSynchronizable;
class cAbstractRunnable;
class cAbstractProcess;
class cAbstractPollable;
class cAbstractProcessData;
class cBasicProcessData;

} // namespace np
