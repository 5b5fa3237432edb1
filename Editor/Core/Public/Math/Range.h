#pragma once

/** From a value to another one that does not belong to it any more. */
template <typename ElementType>
class TRange
{
public:
	TRange() = default;
	TRange(const ElementType& A, const ElementType& B)
		: Lower(A)
		, Upper(B)
	{
	}

	const ElementType& GetLowerBoundValue() const { return Lower; }
	const ElementType& GetUpperBoundValue() const { return Upper; }
	bool Contains(const ElementType& Element) const { return !(Element < Lower) && Element < Upper; }
	bool IsEmpty() const { return !(Lower < Upper); }
	bool operator==(const TRange& Other) const = default;

private:
	ElementType Lower{};
	ElementType Upper{};
};
