#pragma once

#include "CoreTypes.h"

class FDelegateHandle
{
public:
	enum EGenerateNewHandleType
	{
		GenerateNewHandle
	};

	FDelegateHandle() = default;
	explicit FDelegateHandle(EGenerateNewHandleType)
		: Id(++LastId)
	{
	}
	bool IsValid() const { return Id != 0; }
	void Reset() { Id = 0; }
	friend bool operator==(const FDelegateHandle& Left, const FDelegateHandle& Right) { return Left.Id == Right.Id; }
	friend uint32 GetTypeHash(const FDelegateHandle& Handle) { return static_cast<uint32>(Handle.Id); }

private:
	inline static uint64 LastId = 0;
	uint64 Id = 0;
};
