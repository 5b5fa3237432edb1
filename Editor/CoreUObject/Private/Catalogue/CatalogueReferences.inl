#pragma once

namespace Catalogue
{
template <class TVisit>
void VisitTypeReferences(const FSourceType& Type, int Line, TVisit&& Visit)
{
	if (!Type.Path.empty())
	{
		switch (Type.Category)
		{
		case ECategory::Byte:
			Visit(Type.Path, ETarget::Enum, Line);
			break;
		case ECategory::Struct:
			Visit(Type.Path, ETarget::Struct, Line);
			break;
		case ECategory::Delegate:
		case ECategory::MulticastDelegate:
			Visit(Type.Path, ETarget::Delegate, Line);
			break;
		default:
			Visit(Type.Path, ETarget::Class, Line);
			break;
		}
	}
	for (const FSourceType& Value : Type.MapValue)
	{
		VisitTypeReferences(Value, Line, Visit);
	}
}

template <class TVisit>
void VisitReferences(const FSourceOwner& Owner, TVisit&& Visit)
{
	const auto VisitText = [&Visit](const std::string& Path, ETarget Target, int Line)
	{
		if (!Path.empty())
		{
			Visit(Path, Target, Line);
		}
	};
	VisitText(Owner.Parent, Owner.Kind == EOwnerKind::Struct ? ETarget::Struct : ETarget::Class, Owner.Line);
	VisitText(Owner.NativeMake, ETarget::Function, Owner.Line);
	VisitText(Owner.NativeBreak, ETarget::Function, Owner.Line);
	for (const std::string& Interface : Owner.Interfaces)
	{
		VisitText(Interface, ETarget::Class, Owner.Line);
	}
	for (const FSourceProperty& Property : Owner.Properties)
	{
		VisitTypeReferences(Property.Type, Property.Line, Visit);
	}
	for (const FSourceFunction& Function : Owner.Functions)
	{
		for (const FSourceProperty& Param : Function.Params)
		{
			VisitTypeReferences(Param.Type, Function.Line, Visit);
		}
	}
	for (const FSourceComponent& Component : Owner.Components)
	{
		VisitText(Component.Class, ETarget::Class, Component.Line);
	}
}
} // namespace Catalogue
