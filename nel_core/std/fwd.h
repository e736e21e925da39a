#pragma once

/// Forward declarations of the folder, and the only place of its default template arguments.
namespace nstd {

template<typename T>
struct tArrayByteLevelTraits;
template<typename T>
struct tArrayAsciiStringTraits;
template<typename T>
class tAbstractConstArrayProxy;
template<typename T>
class tAbstractArrayProxy;
template<typename T, typename Traits = tArrayByteLevelTraits<T>>
class tArray;
template<typename T, typename Traits = tArrayByteLevelTraits<T>>
class tConstArrayRef;
template<typename T, typename Traits = tArrayByteLevelTraits<T>>
class tArrayRef;
class tBounds;

struct tAutoPtrType;
template<typename T>
struct tAutoPtrRef;
template<typename T>
class tAutoPtr;
class tSharedObjectData;
template<typename T>
class tSharedObject;
template<typename T>
class tSharedObjectWatch;
template<typename T>
class tParentWatch;

template<typename A, typename B>
struct tPair;
template<typename T, typename Node>
class tIteratorBase;
template<typename T, typename Node>
class tIterator;
template<typename T, typename Node>
class tConstIterator;
template<typename T>
class tListNodeBaseType;
template<typename T>
class tListElementNodeType;
template<typename T>
class tVector;
template<typename T>
class tPtrVector;
template<typename T>
class tList;
template<typename T>
class tPtrList;
template<typename T>
class tStack;
template<typename T>
class tConstListRefNode;
template<typename T>
class tConstListRef;
template<unsigned int BucketCount>
struct tArrayHashTraits;
template<typename K, typename V, typename Traits = tArrayHashTraits<1024>>
class tHash;

class cAsciiString;
class cConstCStringRef;
class cNumberConversionFormat;
class cNumberConversion;
class cBuildInfo;

class cAbstractTokenSpec;
template<typename S>
class tTokenizerContext;
template<typename R, typename S>
class tTokenizer;
class cAsciiStringTokenizerContext;
class cAsciiStringTokenizer;
class cUTF8StringTokenizerContext;
class cUTF8StringTokenizer;

class cTime;
class cDate;
class cDateTime;
class cTimer;

class cAbstractException;
class cAbstractExceptionFactory;
class cBugException;
class cRuntimeException;
class cOutOfRangeException;
class cOutOfBoundsException;
class cTypeErrorException;
class cTypeMissmatchException;
class cOSErrorException;
class cTextParseException;
class cNumberConversionException;

} // namespace nstd
