#include "Standalone/LoadedStructure.h"

#include "Standalone/ObjectText.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"

#include <unordered_map>
#include <vector>

namespace LoadedStructure
{
namespace
{
std::vector<FCheck>& Checks()
{
	static std::vector<FCheck> List;
	return List;
}

struct FObjectList
{
	const FArrayProperty* Array;
	const FObjectPropertyBase* Element;
};

/** The lists of objects that the editor's own code walks. Those of data alone are values of an author, who may want an
 * empty place. */
std::vector<FObjectList> FindLists(const UClass* Class)
{
	std::vector<FObjectList> Lists;
	for (TFieldIterator<FProperty> It(Class); It; ++It)
	{
		const FArrayProperty* const Array = It->IsNativeMember() ? CastField<FArrayProperty>(*It) : nullptr;
		const FObjectPropertyBase* const Element = Array ? CastField<FObjectPropertyBase>(Array->Inner) : nullptr;
		if (Element)
		{
			Lists.push_back({Array, Element});
		}
	}
	return Lists;
}

/** The text of an element that was not found goes behind those that were; the others keep their places in the list.
 * Answers whether there was such text: then the reader has told of it. */
bool KeepText(UObject& Object, FName Property, int32 Index)
{
	if (!FKeptObjectText::Find(&Object))
	{
		return false;
	}
	bool bKept = false;
	FKeptObjectText& Kept = FKeptObjectText::FindOrAdd(&Object);
	for (std::size_t At = Kept.Unread.size(); At-- > 0;)
	{
		FKeptObjectText::FUnread& Unread = Kept.Unread[At];
		if (Unread.Property == Property && Unread.Index == Index)
		{
			Kept.LeftOut.insert(Kept.LeftOut.begin(), {Property, Unread.Value});
			Kept.Unread.erase(Kept.Unread.begin() + static_cast<std::ptrdiff_t>(At));
			bKept = true;
		}
		else if (Unread.Property == Property && Unread.Index > Index)
		{
			--Unread.Index;
		}
	}
	return bKept;
}

void DropNullEntries(UObject& Object, const FObjectList& List, FFeedbackContext& Warn)
{
	const FScriptArrayHelper Elements(List.Array, List.Array->GetValuePtr(&Object));
	int32 NumLeft = Elements.Num();
	int32 NumUntold = 0;
	for (int32 Index = Elements.Num() - 1; Index >= 0; --Index)
	{
		if (List.Element->GetObjectPropertyValue(Elements.GetRawPtr(Index)))
		{
			continue;
		}
		for (int32 Next = Index + 1; Next < NumLeft; ++Next)
		{
			List.Element->CopyCompleteValue(Elements.GetRawPtr(Next - 1), Elements.GetRawPtr(Next));
		}
		--NumLeft;
		NumUntold += KeepText(Object, List.Array->GetFName(), Index) ? 0 : 1;
	}
	if (NumLeft < Elements.Num())
	{
		Elements.Resize(NumLeft);
	}
	if (NumUntold > 0)
	{
		Warn.Logf(TEXT("'%s': %d entry(ies) of %s are empty; they are left out"), *Object.GetPathName(), NumUntold,
			*List.Array->GetName());
	}
}

/** What was kept for a value stands as long as the value is as it was after reading: setting it right is part of that.
 */
void RefreshKeptText(UObject& Object)
{
	if (!FKeptObjectText::Find(&Object))
	{
		return;
	}
	for (FKeptObjectText::FUnread& Unread : FKeptObjectText::FindOrAdd(&Object).Unread)
	{
		const FProperty* Property = Object.GetClass()->FindPropertyByName(Unread.Property);
		const void* Value = Property ? Property->GetValuePtr(&Object) : nullptr;
		const FArrayProperty* const Array = CastField<FArrayProperty>(Property);
		if (Array && Unread.Index != INDEX_NONE)
		{
			const FScriptArrayHelper Elements(Array, Value);
			Property = Array->Inner;
			Value = Elements.IsValidIndex(Unread.Index) ? Elements.GetRawPtr(Unread.Index) : nullptr;
		}
		if (Value)
		{
			Unread.TextAfter.Empty();
			Property->ExportTextItem_Direct(Unread.TextAfter, Value, nullptr, &Object, PPF_Delimited);
		}
	}
}
} // namespace

void AddCheck(FCheck Check)
{
	Checks().push_back(Check);
}

void Settle(TConstArrayView<UObject*> Objects, FFeedbackContext& Warn)
{
	std::unordered_map<const UClass*, std::vector<FObjectList>> ListsOf;
	for (UObject* const Object : Objects)
	{
		const auto [Entry, bIsNew] = ListsOf.try_emplace(Object->GetClass());
		if (bIsNew)
		{
			Entry->second = FindLists(Object->GetClass());
		}
		for (const FObjectList& List : Entry->second)
		{
			DropNullEntries(*Object, List, Warn);
		}
	}
	for (const FCheck Check : Checks())
	{
		Check(Objects, Warn);
	}
	for (UObject* const Object : Objects)
	{
		RefreshKeptText(*Object);
	}
}

void KeepEntry(UObject& Owner, FName Property, const UObject& Entry)
{
	const FString Text = FString::Printf(TEXT("\"%s'%s'\""), *Entry.GetClass()->GetPathName(), *Entry.GetPathName());
	FKeptObjectText::FindOrAdd(&Owner).LeftOut.push_back({Property, ToUtf8(Text)});
}

bool FForest::Adopt(const UObject* Parent, const UObject* Child)
{
	if (ParentOf.count(Child) != 0)
	{
		return false;
	}
	int32 Steps = 0;
	for (const UObject* Above = Parent; Above;)
	{
		if (Above == Child || ++Steps > MaxDepth)
		{
			return false;
		}
		const auto Next = ParentOf.find(Above);
		Above = Next == ParentOf.end() ? nullptr : Next->second;
	}
	ParentOf.emplace(Child, Parent);
	return true;
}

bool FForest::IsTooDeep(const UObject* Child) const
{
	int32 Depth = 0;
	for (auto Found = ParentOf.find(Child); Found != ParentOf.end() && Depth <= MaxDepth;
		 Found = ParentOf.find(Found->second))
	{
		++Depth;
	}
	return Depth > MaxDepth;
}
} // namespace LoadedStructure
