#include "Missing/KeptValues.h"

#include "Misc/FeedbackContext.h"
#include "Objects/LostMembers.h"
#include "Objects/ObjectExtension.h"
#include "Objects/ObjectTable.h"
#include "ObjectText/ObjectTextWriter.h"
#include "Standalone/MissingObjects.h"
#include "Standalone/ObjectText.h"
#include "UObject/UnrealType.h"

namespace KeptValues
{
namespace
{
/** What is said when kept text is read again was said when it was kept. */
class FSilence final : public FFeedbackContext
{
public:
	void Serialize(const TCHAR*, ELogVerbosity::Type, const FName&) override {}
};

void AppendProperty(std::string& Out, const FProperty& Property, FStringView Value)
{
	FUTF8::Append(Out, Property.GetFName().GetView().ToStdView());
	Out.push_back('=');
	FUTF8::Append(Out, Value.ToStdView());
}

/** Kept text of the object as one record's text. What it cannot give again in this form stays in the table. */
std::string TakeText(UObject& Object, FKeptObjectText& Kept)
{
	std::string Text = "Begin Object Class=/Script/CoreUObject.Object Name=\"Kept\"\n";
	for (const std::string& Inner : Kept.Objects)
	{
		Text.append(Inner);
	}
	for (const std::string& Line : Kept.Lines)
	{
		Text.append(Line).push_back('\n');
	}
	std::vector<FKeptObjectText::FUnread> Left;
	for (const FKeptObjectText::FUnread& Unread : Kept.Unread)
	{
		const FProperty* const Property = Object.GetClass()->FindPropertyByName(Unread.Property);
		if (Unread.Index != INDEX_NONE || !Property)
		{
			Left.push_back(Unread);
			continue;
		}
		FString Now;
		Property->ExportTextItem_Direct(Now, Property->GetValuePtr(&Object), nullptr, &Object, PPF_Delimited);
		if (Now.Equals(Unread.TextAfter, ESearchCase::CaseSensitive))
		{
			AppendProperty(Text, *Property, FStringView());
			Text.append(Unread.Value).push_back('\n');
		}
	}
	Kept.Objects.clear();
	Kept.Lines.clear();
	Kept.Unread.swap(Left);
	return Text.append("End Object\n");
}
} // namespace

/** The default object of a class, that of a deleted one too; makes none. */
static const UObject* FindDefault(const UClass* Class)
{
	const UObject* const Standing = Class ? Class->GetDefaultObject(false) : nullptr;
	if (!Class || Standing)
	{
		return Standing;
	}
	for (const UObject* const Instance : FObjectTable::Get().GetInstances(*Class, false, true))
	{
		if (Instance->HasAnyFlags(RF_ClassDefaultObject))
		{
			return Instance;
		}
	}
	return nullptr;
}

/** Values that differ from the default become kept text. */
static void Leave(UObject& Object, const UClass* NewParent, const UClass* From)
{
	const UClass* const Class = Object.GetClass();
	const bool bIsDefault = Object.HasAnyFlags(RF_ClassDefaultObject);
	const UObject* const Baseline = FindDefault(bIsDefault ? Class->GetSuperClass() : Class);
	for (TFieldIterator<FProperty> It(From ? From->GetSuperClass() : Class); It; ++It)
	{
		const UClass* const Declarer = It->GetOwnerClass();
		if (!It->IsInExtension() || !Declarer || (NewParent && NewParent->IsChildOf(Declarer))
			|| It->HasAnyPropertyFlags(CPF_Transient | CPF_Deprecated))
		{
			continue;
		}
		const void* const Value = It->GetValuePtr(&Object);
		const bool bInBaseline = Baseline && Baseline->IsA(Declarer);
		if (!It->Identical(Value, bInBaseline ? It->GetValuePtr(Baseline) : nullptr, 0))
		{
			FString Text;
			It->ExportTextItem_Direct(Text, Value, nullptr, &Object, PPF_Delimited | PPF_ExactNumbers);
			std::string& Line = FKeptObjectText::FindOrAdd(&Object).Lines.emplace_back();
			AppendProperty(Line, **It, Text.IsEmpty() ? FStringView(TEXT("()")) : FStringView(Text));
		}
	}
}

void Retry(UObject& Object)
{
	if (!FKeptObjectText::Find(&Object))
	{
		return;
	}
	FKeptObjectText& Kept = FKeptObjectText::FindOrAdd(&Object);
	if (Kept.Lines.empty() && Kept.Unread.empty() && Kept.Objects.empty())
	{
		return;
	}
	FKeptObjectText Before = Kept;
	const std::string Text = TakeText(Object, Kept);
	FObjectTextTree Tree;
	FObjectTextError Ignored;
	if (!Tree.ParseView(Text, Ignored) || Tree.Objects.empty())
	{
		Kept = std::move(Before);
		return;
	}
	const FMissingObjects::FScope Keeping;
	FSilence Silence;
	FObjectTextImport Import(Silence, false);
	for (const FObjectTextRecord& Inner : Tree.Objects.front().Inner)
	{
		Import.Create(Inner, &Object);
	}
	Import.ImportProperties();
	Import.ImportInto(&Object, Tree.Objects.front());
}

/** What was kept is kept, or set, on the new one. */
static void Carry(UObject& New, const UObject& Old)
{
	if (const FKeptObjectText* const Kept = FKeptObjectText::Find(&Old))
	{
		FKeptObjectText Copy = *Kept;
		FKeptObjectText::FindOrAdd(&New) = std::move(Copy);
		Retry(New);
	}
}

namespace
{
UObject* Remake(UObject& Old, UClass& Class)
{
	std::string Text;
	FString Ignored;
	FObjectTextTree Tree;
	FObjectTextError Unreadable;
	const bool bWritten = FObjectTextExport::Package(Old.GetOutermost()).Write({&Old}, Text, Ignored);
	if (!bWritten || !Tree.ParseView(Text, Unreadable) || Tree.Objects.empty())
	{
		return &Old;
	}
	UObject* const Outer = Old.GetOuter();
	const FName Name = Old.GetFName();
	const EObjectFlags Flags = Old.GetFlags();
	Old.MarkAsGarbage();
	const FObjectTextRecord& Root = Tree.Objects.front();
	const FMissingObjects::FScope Keeping;
	FSilence Silence;
	FObjectTextImport Import(Silence, false);
	UObject* const New = Import.Create(Root, Outer,
		[&](const FObjectTextRecord& Record, UObject* Below)
		{
			return &Record == &Root ? NewObject<UObject>(Below, &Class, Name, Flags)
									: FObjectTextImport::DefaultFactory(Record, Below);
		});
	Import.ImportProperties();
	return New;
}
} // namespace

UObject* GiveClass(UObject& Object, UClass& Class)
{
	if (Object.GetClass() == &Class)
	{
		return &Object;
	}
	if (Object.GetClass()->GetNativeClass() != Class.GetNativeClass())
	{
		return Remake(Object, Class);
	}
	Leave(Object, &Class, nullptr);
	Class.GetDefaultObject();
	FObjectTable::Get().SetClass(Object, &Class);
	FObjectExtension::Match(Object);
	if (FKeptObjectText::Find(&Object))
	{
		FKeptObjectText::FindOrAdd(&Object).ClassPath.clear();
		Retry(Object);
	}
	return &Object;
}

static const bool bIsKeeper = []
{
	LostMembers::SetKeeper({&Leave, &Retry, &Carry});
	return true;
}();
} // namespace KeptValues
