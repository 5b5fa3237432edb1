#pragma once

#include "CoreMinimal.h"
#include "UObject/Field.h"
#include "UObject/Object.h"
#include "UObject/ObjectMacros.h"
#include "UObject/PropertyPortFlags.h"
#include "UObject/ScriptDelegates.h"
#include "UObject/ScriptInterface.h"
#include "UObject/SoftObjectPath.h"

class FOutputDevice;
class FStructProperty;
class UField;

/** Text of property values goes through one mechanism: ExportTextItem_Direct writes it, ImportText_Direct reads it
 * back. */
class FProperty : public FField
{
	FIELD_CLASS(FProperty, FField)

	FProperty(FFieldVariant InOwner, FName InName, EPropertyFlags InFlags = CPF_None)
		: FField(InOwner, InName)
		, PropertyFlags(InFlags)
	{
	}

	bool HasAnyPropertyFlags(uint64 Flags) const { return (PropertyFlags & Flags) != 0; }
	bool HasAllPropertyFlags(uint64 Flags) const { return (PropertyFlags & Flags) == Flags; }
	void SetPropertyFlags(uint64 Flags) { PropertyFlags |= Flags; }
	void ClearPropertyFlags(uint64 Flags) { PropertyFlags &= ~Flags; }
	EPropertyFlags GetPropertyFlags() const { return PropertyFlags; }

	/** Size and alignment of one value in memory. */
	virtual int32 GetElementSize() const = 0;
	virtual int32 GetMinAlignment() const = 0;
	int32 GetOffset_ForInternal() const { return Offset; }
	/** Whether the value lies in the object's extension block rather than in its C++ part. */
	bool IsInExtension() const { return bInExtension; }
	/** Where a native member stands. Link places the others. */
	void SetLocation(int32 InOffset, bool bInExtensionBlock)
	{
		Offset = InOffset;
		bInExtension = bInExtensionBlock;
		bNativeMember = !bInExtensionBlock;
	}
	bool IsNativeMember() const { return bNativeMember; }

	/** Where the value stands in an object. */
	void* GetValuePtr(UObject* Container) const;
	const void* GetValuePtr(const UObject* Container) const { return GetValuePtr(const_cast<UObject*>(Container)); }
	/** Where the value stands in a container: a UObject for class properties, struct memory for struct members. */
	template <class T>
	T* ContainerPtrToValuePtr(void* Container, int32 ArrayIndex = 0) const
	{
		return static_cast<T*>(LocateIn(Container));
	}
	template <class T>
	const T* ContainerPtrToValuePtr(const void* Container, int32 ArrayIndex = 0) const
	{
		return static_cast<const T*>(LocateIn(const_cast<void*>(Container)));
	}

	virtual void InitializeValue(void* Dest) const = 0;
	virtual void DestroyValue(void* Dest) const = 0;
	virtual void CopyCompleteValue(void* Dest, const void* Src) const = 0;
	virtual void ClearValue(void* Dest) const;
	/** Whether two values are equal; null stands for a zero value. */
	virtual bool Identical(const void* A, const void* B, uint32 PortFlags = 0) const = 0;
	bool Identical_InContainer(const void* A, const void* B) const;

	/** Appends the value's text. DefaultValue (may be null) lets structs leave out members that equal it. */
	virtual void ExportTextItem_Direct(FString& ValueStr, const void* PropertyValue, const void* DefaultValue,
		UObject* Parent, int32 PortFlags, UObject* ExportRootScope = nullptr) const = 0;
	/** The value of an object or struct as text; false when it equals that of Delta and nothing was written. */
	bool ExportText_InContainer(int32 Index, FString& ValueStr, const void* Data, const void* Delta, UObject* Parent,
		int32 PortFlags, UObject* ExportRootScope = nullptr) const;
	/** Appends the text of the value at Data (the value itself, not its container). True when it was written. */
	bool ExportText_Direct(FString& ValueStr, const void* Data, const void* Delta, UObject* Parent, int32 PortFlags,
		UObject* ExportRootScope = nullptr) const;

	/** Reads one value's text. Answers the first character behind it, or null when the text is no such value; then the
	 * value may be half set and ErrorText tells why. */
	virtual const TCHAR* ImportText_Direct(const TCHAR* Buffer, void* PropertyPtr, UObject* OwnerObject,
		int32 PortFlags, FOutputDevice* ErrorText = nullptr) const = 0;
	const TCHAR* ImportText_InContainer(const TCHAR* Buffer, void* Container, UObject* OwnerObject, int32 PortFlags,
		FOutputDevice* ErrorText = nullptr) const;
	bool ValidateImportFlags(uint32 PortFlags, FOutputDevice* ErrorHandler = nullptr) const;

	/** The C++ type as text: "TArray" with "<int32>" in the extended text, "FVector", "AActor*". */
	virtual FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const = 0;
	virtual bool SameType(const FProperty* Other) const { return Other && Other->GetClass() == GetClass(); }
	/** Visits every object that the value refers to, weakly too; Visit may put another object in the place. */
	virtual void VisitObjects(void* Value, TFunctionRef<void(UObject*&)> Visit) const {}
	/** Whether values can hold plain pointers to objects. Structs that are being asked already answer false. */
	virtual bool ContainsObjectReference(TArray<const FStructProperty*>& Encountered) const { return false; }
	/** Visits the reflection objects that the property itself refers to: its class, struct, enum or signature. */
	virtual void VisitTypes(TFunctionRef<void(const UObject*)> Visit) const {}
	/** The engine's rule which members stand in text: neither transient nor out of date, unless asked for. */
	bool ShouldPort(uint32 PortFlags = 0) const;

	uint64 PropertyFlags = CPF_None;
	int32 ArrayDim = 1;
	FName RepNotifyFunc;

private:
	friend class UStruct;
	void* LocateIn(void* Container) const;

	int32 Offset = 0;
	bool bInExtension = false;
	bool bNativeMember = false;
	bool bPlaced = false;
};

class FNumericProperty : public FProperty
{
	FIELD_CLASS(FNumericProperty, FProperty)
	using FProperty::FProperty;

	virtual bool IsFloatingPoint() const { return false; }
	virtual bool IsInteger() const { return true; }
	/** The enum that names the values, or null. Bytes alone have one. */
	virtual UEnum* GetIntPropertyEnum() const { return nullptr; }
	bool IsEnum() const { return GetIntPropertyEnum() != nullptr; }
	virtual int64 GetSignedIntPropertyValue(const void* Data) const = 0;
	virtual double GetFloatingPointPropertyValue(const void* Data) const = 0;
	virtual void SetIntPropertyValue(void* Data, int64 Value) const = 0;
	virtual void SetFloatingPointPropertyValue(void* Data, double Value) const = 0;
	virtual bool CanHoldValue(int64 Value) const = 0;
	FString GetNumericPropertyValueToString(const void* Data) const;
	bool SetNumericPropertyValueFromString(void* Data, const TCHAR* Value) const;
};

/** A property whose value is one C++ type held in place. */
template <class TBase, class TValue>
class TPropertyOfValue : public TBase
{
public:
	using TBase::TBase;
	using TCppType = TValue;

	int32 GetElementSize() const override { return sizeof(TValue); }
	int32 GetMinAlignment() const override { return alignof(TValue); }
	void InitializeValue(void* Dest) const override { ::new (Dest) TValue(); }
	void DestroyValue(void* Dest) const override { static_cast<TValue*>(Dest)->~TValue(); }
	void CopyCompleteValue(void* Dest, const void* Src) const override
	{
		*static_cast<TValue*>(Dest) = *static_cast<const TValue*>(Src);
	}

	static const TValue& GetPropertyValue(const void* Data) { return *static_cast<const TValue*>(Data); }
	static void SetPropertyValue(void* Data, const TValue& Value) { *static_cast<TValue*>(Data) = Value; }
	TValue GetPropertyValue_InContainer(const void* Container) const
	{
		return *this->template ContainerPtrToValuePtr<TValue>(Container);
	}
	void SetPropertyValue_InContainer(void* Container, const TValue& Value) const
	{
		*this->template ContainerPtrToValuePtr<TValue>(Container) = Value;
	}
};

template <class TNumber>
class TNumericPropertyOf : public TPropertyOfValue<FNumericProperty, TNumber>
{
public:
	using TPropertyOfValue<FNumericProperty, TNumber>::TPropertyOfValue;

	bool IsFloatingPoint() const override { return std::is_floating_point_v<TNumber>; }
	bool IsInteger() const override { return !std::is_floating_point_v<TNumber>; }
	int64 GetSignedIntPropertyValue(const void* Data) const override
	{
		return static_cast<int64>(*static_cast<const TNumber*>(Data));
	}
	double GetFloatingPointPropertyValue(const void* Data) const override
	{
		return static_cast<double>(*static_cast<const TNumber*>(Data));
	}
	void SetIntPropertyValue(void* Data, int64 Value) const override
	{
		*static_cast<TNumber*>(Data) = static_cast<TNumber>(Value);
	}
	void SetFloatingPointPropertyValue(void* Data, double Value) const override
	{
		*static_cast<TNumber*>(Data) = static_cast<TNumber>(Value);
	}
	bool CanHoldValue(int64 Value) const override { return static_cast<int64>(static_cast<TNumber>(Value)) == Value; }
	bool Identical(const void* A, const void* B, uint32 PortFlags = 0) const override
	{
		const TNumber ValueA = A ? *static_cast<const TNumber*>(A) : TNumber();
		const TNumber ValueB = B ? *static_cast<const TNumber*>(B) : TNumber();
		return ValueA == ValueB;
	}
	void ExportTextItem_Direct(FString& ValueStr, const void* PropertyValue, const void* DefaultValue, UObject* Parent,
		int32 PortFlags, UObject* ExportRootScope = nullptr) const override;
	const TCHAR* ImportText_Direct(const TCHAR* Buffer, void* PropertyPtr, UObject* OwnerObject, int32 PortFlags,
		FOutputDevice* ErrorText = nullptr) const override;
	FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override;
};

#define NUMERIC_PROPERTY(TProperty, TNumber) \
	class TProperty : public TNumericPropertyOf<TNumber> \
	{ \
		FIELD_CLASS(TProperty, FNumericProperty) \
		using TNumericPropertyOf<TNumber>::TNumericPropertyOf; \
	};
NUMERIC_PROPERTY(FInt8Property, int8)
NUMERIC_PROPERTY(FInt16Property, int16)
NUMERIC_PROPERTY(FIntProperty, int32)
NUMERIC_PROPERTY(FInt64Property, int64)
NUMERIC_PROPERTY(FUInt16Property, uint16)
NUMERIC_PROPERTY(FUInt32Property, uint32)
NUMERIC_PROPERTY(FUInt64Property, uint64)
NUMERIC_PROPERTY(FFloatProperty, float)
NUMERIC_PROPERTY(FDoubleProperty, double)
#undef NUMERIC_PROPERTY

/** Export, import and comparison as every property kind overrides them. */
#define PROPERTY_TEXT_OVERRIDES \
	bool Identical(const void* A, const void* B, uint32 PortFlags = 0) const override; \
	void ExportTextItem_Direct(FString& ValueStr, const void* PropertyValue, const void* DefaultValue, \
		UObject* Parent, int32 PortFlags, UObject* ExportRootScope = nullptr) const override; \
	const TCHAR* ImportText_Direct(const TCHAR* Buffer, void* PropertyPtr, UObject* OwnerObject, int32 PortFlags, \
		FOutputDevice* ErrorText = nullptr) const override; \
	FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override;

/** A byte, or with Enum an enum of the older kind. Enum values are written by name. */
class FByteProperty : public TNumericPropertyOf<uint8>
{
	FIELD_CLASS(FByteProperty, FNumericProperty)
	using TNumericPropertyOf<uint8>::TNumericPropertyOf;
	UEnum* GetIntPropertyEnum() const override { return Enum; }
	void VisitTypes(TFunctionRef<void(const UObject*)> Visit) const override;
	bool SameType(const FProperty* Other) const override;
	void ExportTextItem_Direct(FString& ValueStr, const void* PropertyValue, const void* DefaultValue, UObject* Parent,
		int32 PortFlags, UObject* ExportRootScope = nullptr) const override;
	const TCHAR* ImportText_Direct(const TCHAR* Buffer, void* PropertyPtr, UObject* OwnerObject, int32 PortFlags,
		FOutputDevice* ErrorText = nullptr) const override;
	FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override;

	UEnum* Enum = nullptr;
};

class FBoolProperty : public TPropertyOfValue<FProperty, bool>
{
	FIELD_CLASS(FBoolProperty, FProperty)
	using TPropertyOfValue<FProperty, bool>::TPropertyOfValue;
	PROPERTY_TEXT_OVERRIDES
};

/** An enum class value. Held in as many bytes as the C++ enum has (1 for catalogued ones). */
class FEnumProperty : public FProperty
{
	FIELD_CLASS(FEnumProperty, FProperty)
	using FProperty::FProperty;
	PROPERTY_TEXT_OVERRIDES
	int32 GetElementSize() const override { return ByteSize; }
	int32 GetMinAlignment() const override { return ByteSize; }
	void InitializeValue(void* Dest) const override;
	void DestroyValue(void* Dest) const override {}
	void CopyCompleteValue(void* Dest, const void* Src) const override;
	void VisitTypes(TFunctionRef<void(const UObject*)> Visit) const override;
	bool SameType(const FProperty* Other) const override;
	UEnum* GetEnum() const { return Enum; }
	void SetEnum(UEnum* InEnum) { Enum = InEnum; }
	int64 GetValue(const void* Data) const;
	void SetValue(void* Data, int64 Value) const;

	UEnum* Enum = nullptr;
	int32 ByteSize = 1;
};

class FNameProperty : public TPropertyOfValue<FProperty, FName>
{
	FIELD_CLASS(FNameProperty, FProperty)
	using TPropertyOfValue<FProperty, FName>::TPropertyOfValue;
	PROPERTY_TEXT_OVERRIDES
};

class FStrProperty : public TPropertyOfValue<FProperty, FString>
{
	FIELD_CLASS(FStrProperty, FProperty)
	using TPropertyOfValue<FProperty, FString>::TPropertyOfValue;
	PROPERTY_TEXT_OVERRIDES
};

class FTextProperty : public TPropertyOfValue<FProperty, FText>
{
	FIELD_CLASS(FTextProperty, FProperty)
	using TPropertyOfValue<FProperty, FText>::TPropertyOfValue;
	PROPERTY_TEXT_OVERRIDES
};

/** Anything that refers to an object of a class; how the reference is held is the sub-class's matter. */
class FObjectPropertyBase : public FProperty
{
	FIELD_CLASS(FObjectPropertyBase, FProperty)
	using FProperty::FProperty;
	PROPERTY_TEXT_OVERRIDES
	virtual UObject* GetObjectPropertyValue(const void* Data) const = 0;
	virtual void SetObjectPropertyValue(void* Data, UObject* Value) const = 0;
	UObject* GetObjectPropertyValue_InContainer(const void* Container) const
	{
		return GetObjectPropertyValue(ContainerPtrToValuePtr<void>(Container));
	}
	void SetObjectPropertyValue_InContainer(void* Container, UObject* Value) const
	{
		SetObjectPropertyValue(ContainerPtrToValuePtr<void>(Container), Value);
	}
	void VisitObjects(void* Value, TFunctionRef<void(UObject*&)> Visit) const override;
	void VisitTypes(TFunctionRef<void(const UObject*)> Visit) const override;
	bool SameType(const FProperty* Other) const override;
	void SetPropertyClass(UClass* InClass) { PropertyClass = InClass; }

	UClass* PropertyClass = nullptr;
};

class FObjectProperty : public FObjectPropertyBase
{
	FIELD_CLASS(FObjectProperty, FObjectPropertyBase)
	using FObjectPropertyBase::FObjectPropertyBase;
	int32 GetElementSize() const override { return sizeof(UObject*); }
	int32 GetMinAlignment() const override { return alignof(UObject*); }
	void InitializeValue(void* Dest) const override { *static_cast<UObject**>(Dest) = nullptr; }
	void DestroyValue(void* Dest) const override {}
	void CopyCompleteValue(void* Dest, const void* Src) const override
	{
		*static_cast<UObject**>(Dest) = *static_cast<UObject* const*>(Src);
	}
	UObject* GetObjectPropertyValue(const void* Data) const override { return *static_cast<UObject* const*>(Data); }
	void SetObjectPropertyValue(void* Data, UObject* Value) const override { *static_cast<UObject**>(Data) = Value; }
	bool ContainsObjectReference(TArray<const FStructProperty*>& Encountered) const override { return true; }
};

class FClassProperty : public FObjectProperty
{
	FIELD_CLASS(FClassProperty, FObjectProperty)
	using FObjectProperty::FObjectProperty;
	bool SameType(const FProperty* Other) const override;
	FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override;
	void VisitTypes(TFunctionRef<void(const UObject*)> Visit) const override;
	void SetMetaClass(UClass* InClass) { MetaClass = InClass; }

	UClass* MetaClass = nullptr;
};

class FWeakObjectProperty : public FObjectPropertyBase
{
	FIELD_CLASS(FWeakObjectProperty, FObjectPropertyBase)
	using FObjectPropertyBase::FObjectPropertyBase;
	int32 GetElementSize() const override { return sizeof(FWeakObjectPtr); }
	int32 GetMinAlignment() const override { return alignof(FWeakObjectPtr); }
	void InitializeValue(void* Dest) const override { ::new (Dest) FWeakObjectPtr(); }
	void DestroyValue(void* Dest) const override {}
	void CopyCompleteValue(void* Dest, const void* Src) const override
	{
		*static_cast<FWeakObjectPtr*>(Dest) = *static_cast<const FWeakObjectPtr*>(Src);
	}
	UObject* GetObjectPropertyValue(const void* Data) const override
	{
		return static_cast<const FWeakObjectPtr*>(Data)->Get();
	}
	void SetObjectPropertyValue(void* Data, UObject* Value) const override
	{
		*static_cast<FWeakObjectPtr*>(Data) = FWeakObjectPtr(Value);
	}
};

class FSoftObjectProperty : public FObjectPropertyBase
{
	FIELD_CLASS(FSoftObjectProperty, FObjectPropertyBase)
	using FObjectPropertyBase::FObjectPropertyBase;
	PROPERTY_TEXT_OVERRIDES
	void VisitObjects(void* Value, TFunctionRef<void(UObject*&)> Visit) const override;
	int32 GetElementSize() const override { return sizeof(FSoftObjectPtr); }
	int32 GetMinAlignment() const override { return alignof(FSoftObjectPtr); }
	void InitializeValue(void* Dest) const override { ::new (Dest) FSoftObjectPtr(); }
	void DestroyValue(void* Dest) const override { static_cast<FSoftObjectPtr*>(Dest)->~FSoftObjectPtr(); }
	void CopyCompleteValue(void* Dest, const void* Src) const override
	{
		*static_cast<FSoftObjectPtr*>(Dest) = *static_cast<const FSoftObjectPtr*>(Src);
	}
	UObject* GetObjectPropertyValue(const void* Data) const override
	{
		return static_cast<const FSoftObjectPtr*>(Data)->Get();
	}
	void SetObjectPropertyValue(void* Data, UObject* Value) const override;
};

class FSoftClassProperty : public FSoftObjectProperty
{
	FIELD_CLASS(FSoftClassProperty, FSoftObjectProperty)
	using FSoftObjectProperty::FSoftObjectProperty;
	FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override;
	void VisitTypes(TFunctionRef<void(const UObject*)> Visit) const override;
	void SetMetaClass(UClass* InClass) { MetaClass = InClass; }

	UClass* MetaClass = nullptr;
};

class FInterfaceProperty : public TPropertyOfValue<FProperty, FScriptInterface>
{
	FIELD_CLASS(FInterfaceProperty, FProperty)
	using TPropertyOfValue<FProperty, FScriptInterface>::TPropertyOfValue;
	PROPERTY_TEXT_OVERRIDES
	void VisitObjects(void* Value, TFunctionRef<void(UObject*&)> Visit) const override;
	bool ContainsObjectReference(TArray<const FStructProperty*>& Encountered) const override { return true; }
	void VisitTypes(TFunctionRef<void(const UObject*)> Visit) const override;
	bool SameType(const FProperty* Other) const override;
	void SetInterfaceClass(UClass* InClass) { InterfaceClass = InClass; }

	UClass* InterfaceClass = nullptr;
};

class FStructProperty : public FProperty
{
	FIELD_CLASS(FStructProperty, FProperty)
	using FProperty::FProperty;
	PROPERTY_TEXT_OVERRIDES
	int32 GetElementSize() const override;
	int32 GetMinAlignment() const override;
	void InitializeValue(void* Dest) const override;
	void DestroyValue(void* Dest) const override;
	void CopyCompleteValue(void* Dest, const void* Src) const override;
	void VisitObjects(void* Value, TFunctionRef<void(UObject*&)> Visit) const override;
	bool ContainsObjectReference(TArray<const FStructProperty*>& Encountered) const override;
	void VisitTypes(TFunctionRef<void(const UObject*)> Visit) const override;
	bool SameType(const FProperty* Other) const override;

	UScriptStruct* Struct = nullptr;
};

class FDelegateProperty : public TPropertyOfValue<FProperty, FScriptDelegate>
{
	FIELD_CLASS(FDelegateProperty, FProperty)
	using TPropertyOfValue<FProperty, FScriptDelegate>::TPropertyOfValue;
	PROPERTY_TEXT_OVERRIDES
	void VisitObjects(void* Value, TFunctionRef<void(UObject*&)> Visit) const override;
	void VisitTypes(TFunctionRef<void(const UObject*)> Visit) const override;
	bool SameType(const FProperty* Other) const override;

	UFunction* SignatureFunction = nullptr;
};

class FMulticastDelegateProperty : public TPropertyOfValue<FProperty, FMulticastScriptDelegate>
{
	FIELD_CLASS(FMulticastDelegateProperty, FProperty)
	using TPropertyOfValue<FProperty, FMulticastScriptDelegate>::TPropertyOfValue;
	PROPERTY_TEXT_OVERRIDES
	void VisitObjects(void* Value, TFunctionRef<void(UObject*&)> Visit) const override;
	void VisitTypes(TFunctionRef<void(const UObject*)> Visit) const override;
	bool SameType(const FProperty* Other) const override;

	UFunction* SignatureFunction = nullptr;
};

class FMulticastInlineDelegateProperty : public FMulticastDelegateProperty
{
	FIELD_CLASS(FMulticastInlineDelegateProperty, FMulticastDelegateProperty)
	using FMulticastDelegateProperty::FMulticastDelegateProperty;
};

/**
 * How a container property reaches the C++ container that holds its values. Native members bring their own; values that
 * only data knows use the generic one.
 */
struct FContainerOps
{
	int32 Size = 0;
	int32 Alignment = 0;
	void (*Construct)(void* Container) = nullptr;
	void (*Destruct)(void* Container) = nullptr;
	int32 (*Num)(const void* Container) = nullptr;
	/** The element; for a map the key, with the value through ValueAt. Constant time for arrays only. */
	void* (*At)(void* Container, int32 Index) = nullptr;
	void* (*ValueAt)(void* Container, int32 Index) = nullptr;
	/** Arrays: grows with default elements or shrinks. */
	void (*Resize)(void* Container, int32 Num) = nullptr;
	void (*Empty)(void* Container) = nullptr;
	/** Sets and maps: adds a copy of the key (and of the value, which replaces that of an equal key). */
	void (*Add)(void* Container, const void* Key, const void* Value) = nullptr;
	/** Sets and maps: visits all elements in order; Value is null for a set. */
	void (*ForEach)(void* Container, TFunctionRef<void(void* Key, void* Value)> Visit) = nullptr;
};

/** Memory of a container that only data knows: elements (or pairs) in a row. */
struct FScriptContainer
{
	uint8* Data = nullptr;
	int32 Num = 0;
	int32 Max = 0;
};

class FArrayProperty : public FProperty
{
	FIELD_CLASS(FArrayProperty, FProperty)
	using FProperty::FProperty;
	~FArrayProperty() override;
	PROPERTY_TEXT_OVERRIDES
	int32 GetElementSize() const override { return Ops ? Ops->Size : static_cast<int32>(sizeof(FScriptContainer)); }
	int32 GetMinAlignment() const override
	{
		return Ops ? Ops->Alignment : static_cast<int32>(alignof(FScriptContainer));
	}
	void InitializeValue(void* Dest) const override;
	void DestroyValue(void* Dest) const override;
	void CopyCompleteValue(void* Dest, const void* Src) const override;
	bool SameType(const FProperty* Other) const override;
	void VisitObjects(void* Value, TFunctionRef<void(UObject*&)> Visit) const override;
	bool ContainsObjectReference(TArray<const FStructProperty*>& Encountered) const override;
	void VisitTypes(TFunctionRef<void(const UObject*)> Visit) const override;

	FProperty* Inner = nullptr;
	const FContainerOps* Ops = nullptr;
};

class FSetProperty : public FProperty
{
	FIELD_CLASS(FSetProperty, FProperty)
	using FProperty::FProperty;
	~FSetProperty() override;
	PROPERTY_TEXT_OVERRIDES
	int32 GetElementSize() const override { return Ops ? Ops->Size : static_cast<int32>(sizeof(FScriptContainer)); }
	int32 GetMinAlignment() const override
	{
		return Ops ? Ops->Alignment : static_cast<int32>(alignof(FScriptContainer));
	}
	void InitializeValue(void* Dest) const override;
	void DestroyValue(void* Dest) const override;
	void CopyCompleteValue(void* Dest, const void* Src) const override;
	bool SameType(const FProperty* Other) const override;
	void VisitObjects(void* Value, TFunctionRef<void(UObject*&)> Visit) const override;
	bool ContainsObjectReference(TArray<const FStructProperty*>& Encountered) const override;
	void VisitTypes(TFunctionRef<void(const UObject*)> Visit) const override;

	FProperty* ElementProp = nullptr;
	const FContainerOps* Ops = nullptr;
};

class FMapProperty : public FProperty
{
	FIELD_CLASS(FMapProperty, FProperty)
	using FProperty::FProperty;
	~FMapProperty() override;
	PROPERTY_TEXT_OVERRIDES
	int32 GetElementSize() const override { return Ops ? Ops->Size : static_cast<int32>(sizeof(FScriptContainer)); }
	int32 GetMinAlignment() const override
	{
		return Ops ? Ops->Alignment : static_cast<int32>(alignof(FScriptContainer));
	}
	void InitializeValue(void* Dest) const override;
	void DestroyValue(void* Dest) const override;
	void CopyCompleteValue(void* Dest, const void* Src) const override;
	bool SameType(const FProperty* Other) const override;
	void VisitObjects(void* Value, TFunctionRef<void(UObject*&)> Visit) const override;
	bool ContainsObjectReference(TArray<const FStructProperty*>& Encountered) const override;
	void VisitTypes(TFunctionRef<void(const UObject*)> Visit) const override;

	FProperty* KeyProp = nullptr;
	FProperty* ValueProp = nullptr;
	const FContainerOps* Ops = nullptr;
};

/** A path to a property, kept as text. */
class FFieldPathProperty : public TPropertyOfValue<FProperty, FString>
{
	FIELD_CLASS(FFieldPathProperty, FProperty)
	using TPropertyOfValue<FProperty, FString>::TPropertyOfValue;
	PROPERTY_TEXT_OVERRIDES
};

/** Uniform access to an array value whatever holds it. */
class FScriptArrayHelper
{
public:
	FScriptArrayHelper(const FArrayProperty* InProperty, const void* InArray)
		: Property(InProperty)
		, Array(const_cast<void*>(InArray))
	{
	}
	int32 Num() const;
	uint8* GetRawPtr(int32 Index) const;
	void Resize(int32 Count) const;
	int32 AddValue() const;
	void EmptyValues() const { Resize(0); }
	bool IsValidIndex(int32 Index) const { return Index >= 0 && Index < Num(); }

private:
	const FArrayProperty* Property;
	void* Array;
};

class FScriptSetHelper
{
public:
	FScriptSetHelper(const FSetProperty* InProperty, const void* InSet)
		: Property(InProperty)
		, Set(const_cast<void*>(InSet))
	{
	}
	int32 Num() const;
	uint8* GetElementPtr(int32 Index) const;
	/** Adds a copy unless an equal element is there. */
	void AddElement(const void* Element) const;
	void EmptyElements() const;
	/** In order; the way to walk a set in linear time. */
	void ForEach(TFunctionRef<void(void* Element)> Visit) const;

private:
	const FSetProperty* Property;
	void* Set;
};

class FScriptMapHelper
{
public:
	FScriptMapHelper(const FMapProperty* InProperty, const void* InMap)
		: Property(InProperty)
		, Map(const_cast<void*>(InMap))
	{
	}
	int32 Num() const;
	uint8* GetKeyPtr(int32 Index) const;
	uint8* GetValuePtr(int32 Index) const;
	/** Adds a pair; an equal key has its value replaced. */
	void AddPair(const void* Key, const void* Value) const;
	void EmptyValues() const;
	/** In order; the way to walk a map in linear time. */
	void ForEach(TFunctionRef<void(void* Key, void* Value)> Visit) const;
	/** The value of an equal key, or null. */
	uint8* FindValue(const void* Key) const;

private:
	const FMapProperty* Property;
	void* Map;
};

#undef PROPERTY_TEXT_OVERRIDES

enum class EFieldIteratorFlags : uint8
{
	ExcludeSuper,
	IncludeSuper,
	ExcludeDeprecated,
	IncludeDeprecated,
	ExcludeInterfaces,
	IncludeInterfaces,
};
namespace EFieldIterationFlags
{
constexpr uint8 None = 0, IncludeSuper = 1, IncludeDeprecated = 2, IncludeInterfaces = 4, IncludeAll = 7,
				Default = IncludeSuper | IncludeDeprecated;
}

/**
 * Walks the fields of a struct, own ones first, then the super's: properties (TFieldIterator<FProperty>) or functions
 * (TFieldIterator<UFunction>). Interfaces are not walked, whatever the flags say.
 */
template <class T>
class TFieldIterator
{
public:
	explicit TFieldIterator(const UStruct* InStruct, EFieldIteratorFlags SuperFlags = EFieldIteratorFlags::IncludeSuper,
		EFieldIteratorFlags DeprecatedFlags = EFieldIteratorFlags::IncludeDeprecated,
		EFieldIteratorFlags InterfaceFlags = EFieldIteratorFlags::ExcludeInterfaces)
		: Struct(InStruct)
		, bIncludeSuper(SuperFlags == EFieldIteratorFlags::IncludeSuper)
		, bIncludeDeprecated(DeprecatedFlags == EFieldIteratorFlags::IncludeDeprecated)
	{
		Field = Struct ? First(Struct) : nullptr;
		Settle();
	}
	explicit operator bool() const { return Field != nullptr; }
	TFieldIterator& operator++()
	{
		Field = Field->Next;
		Settle();
		return *this;
	}
	T* operator*() const { return static_cast<T*>(Field); }
	T* operator->() const { return static_cast<T*>(Field); }
	const UStruct* GetStruct() const { return Struct; }
	bool operator!=(const TFieldIterator& Other) const { return Field != Other.Field; }

private:
	static constexpr bool bIsProperty = std::is_base_of_v<FField, T>;
	using FLink = std::conditional_t<bIsProperty, FField, UField>;

	static FLink* First(const UStruct* Of);
	static const UStruct* SuperOf(const UStruct* Of);
	bool Fits(FLink* Link) const;
	void Settle()
	{
		while (Struct)
		{
			while (Field && !Fits(Field))
			{
				Field = Field->Next;
			}
			if (Field)
			{
				return;
			}
			Struct = bIncludeSuper ? SuperOf(Struct) : nullptr;
			Field = Struct ? First(Struct) : nullptr;
		}
	}

	const UStruct* Struct;
	FLink* Field = nullptr;
	bool bIncludeSuper;
	bool bIncludeDeprecated;
};

#include "UObject/Class.h"

template <class T>
typename TFieldIterator<T>::FLink* TFieldIterator<T>::First(const UStruct* Of)
{
	if constexpr (bIsProperty)
	{
		return Of->GetChildProperties();
	}
	else
	{
		return Of->GetChildren();
	}
}
template <class T>
const UStruct* TFieldIterator<T>::SuperOf(const UStruct* Of)
{
	return Of->GetSuperStruct();
}
template <class T>
bool TFieldIterator<T>::Fits(FLink* Link) const
{
	if constexpr (bIsProperty)
	{
		const bool bHidden = !bIncludeDeprecated && static_cast<FProperty*>(Link)->HasAnyPropertyFlags(CPF_Deprecated);
		return !bHidden && (std::is_same_v<T, FProperty> || Link->IsA(T::StaticClass()));
	}
	else
	{
		return UE::Object::IsObjectA(Link, T::StaticClass());
	}
}

template <class T>
T* FField::GetOwner() const
{
	return Cast<T>(GetOwnerUObject());
}
template <class T>
T* FindFProperty(const UStruct* Owner, FName Name)
{
	return CastField<T>(Owner ? Owner->FindPropertyByName(Name) : nullptr);
}
template <class T>
T* FindFProperty(const UStruct* Owner, const TCHAR* Name)
{
	return FindFProperty<T>(Owner, FName(Name));
}
