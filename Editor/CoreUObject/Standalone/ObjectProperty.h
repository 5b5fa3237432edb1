#pragma once

#include "Standalone/Property.h"
#include "UObject/ScriptDelegates.h"
#include "UObject/ScriptInterface.h"
#include "UObject/SoftObjectPath.h"
#include "UObject/WeakObjectPtr.h"

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

class FObjectProperty : public TPropertyOfValue<FObjectPropertyBase, UObject*>
{
	FIELD_CLASS(FObjectProperty, FObjectPropertyBase)
	using TPropertyOfValue<FObjectPropertyBase, UObject*>::TPropertyOfValue;
	UObject* GetObjectPropertyValue(const void* Data) const override { return GetPropertyValue(Data); }
	void SetObjectPropertyValue(void* Data, UObject* Value) const override { SetPropertyValue(Data, Value); }
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

class FWeakObjectProperty : public TPropertyOfValue<FObjectPropertyBase, FWeakObjectPtr>
{
	FIELD_CLASS(FWeakObjectProperty, FObjectPropertyBase)
	using TPropertyOfValue<FObjectPropertyBase, FWeakObjectPtr>::TPropertyOfValue;
	UObject* GetObjectPropertyValue(const void* Data) const override { return GetPropertyValue(Data).Get(); }
	void SetObjectPropertyValue(void* Data, UObject* Value) const override
	{
		SetPropertyValue(Data, FWeakObjectPtr(Value));
	}
};

class FSoftObjectProperty : public TPropertyOfValue<FObjectPropertyBase, FSoftObjectPtr>
{
	FIELD_CLASS(FSoftObjectProperty, FObjectPropertyBase)
	using TPropertyOfValue<FObjectPropertyBase, FSoftObjectPtr>::TPropertyOfValue;
	PROPERTY_TEXT_OVERRIDES
	void VisitObjects(void* Value, TFunctionRef<void(UObject*&)> Visit) const override;
	UObject* GetObjectPropertyValue(const void* Data) const override { return GetPropertyValue(Data).Get(); }
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
