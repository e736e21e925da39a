#pragma once

class cSAExceptions;
class cDummyContextData;

/// Forward declarations of the folder.
namespace nsa {

class cAbstractSerializer;
class cAbstractDeserializer;
class cAbstractContextData;
struct cContextRefRef;
class cContextRef;
class cContext;

class cSerializeBinaryShared;
class cSerializeBinary;
class cDeserializeBinary;
class cSerializeDebug;
class cSerializeToTypeString;

template<typename T>
struct tTypeName;
class cAbstractTypeReference;
template<typename T>
class cTypeReference;
class cReferenceFrame;

class cLabeledTypeMissmatchException;

} // namespace nsa
