#pragma once

#include "CoreMinimal.h"
#include "UObject/Field.h"
#include "UObject/Object.h"
#include "UObject/ObjectMacros.h"
#include "UObject/PropertyPortFlags.h"

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
	virtual double GetFloatingPointPropertyValue(const void* Data) const = 0;
	FString GetNumericPropertyValueToString(const void* Data) const;
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
	double GetFloatingPointPropertyValue(const void* Data) const override
	{
		return static_cast<double>(*static_cast<const TNumber*>(Data));
	}
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

/** A flag: a byte of its own, or one bit of a byte that it shares with others. */
class FBoolProperty : public FProperty
{
	FIELD_CLASS(FBoolProperty, FProperty)
	using FProperty::FProperty;
	using TCppType = bool;
	PROPERTY_TEXT_OVERRIDES

	int32 GetElementSize() const override { return 1; }
	int32 GetMinAlignment() const override { return 1; }
	void InitializeValue(void* Dest) const override { SetPropertyValue(Dest, false); }
	void DestroyValue(void* Dest) const override {}
	void CopyCompleteValue(void* Dest, const void* Src) const override
	{
		SetPropertyValue(Dest, GetPropertyValue(Src));
	}

	bool GetPropertyValue(const void* Data) const { return (*static_cast<const uint8*>(Data) & ByteMask) != 0; }
	void SetPropertyValue(void* Data, bool bValue) const
	{
		uint8& Byte = *static_cast<uint8*>(Data);
		Byte = static_cast<uint8>((Byte & ~FieldMask) | (bValue ? ByteMask : 0));
	}
	bool GetPropertyValue_InContainer(const void* Container) const
	{
		return GetPropertyValue(ContainerPtrToValuePtr<uint8>(Container));
	}
	void SetPropertyValue_InContainer(void* Container, bool bValue) const
	{
		SetPropertyValue(ContainerPtrToValuePtr<uint8>(Container), bValue);
	}
	/** Makes it one bit of its byte. */
	void SetMask(uint8 Bit) { ByteMask = FieldMask = Bit; }

private:
	uint8 ByteMask = 1;
	uint8 FieldMask = 0xFF;
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

/** A path to a property, kept as text. */
class FFieldPathProperty : public TPropertyOfValue<FProperty, FString>
{
	FIELD_CLASS(FFieldPathProperty, FProperty)
	using TPropertyOfValue<FProperty, FString>::TPropertyOfValue;
	PROPERTY_TEXT_OVERRIDES
};
