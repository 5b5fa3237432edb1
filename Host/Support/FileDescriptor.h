#pragma once

/** Owns one descriptor of the system and closes it. */
class FFileDescriptor
{
public:
	FFileDescriptor() = default;
	explicit FFileDescriptor(int InHandle);
	FFileDescriptor(FFileDescriptor&& Other) noexcept;
	FFileDescriptor& operator=(FFileDescriptor&& Other) noexcept;
	FFileDescriptor(const FFileDescriptor&) = delete;
	FFileDescriptor& operator=(const FFileDescriptor&) = delete;
	~FFileDescriptor();

	/** Negative when there is none. */
	int Get() const { return Handle; }
	bool IsValid() const { return Handle >= 0; }
	void Reset();

private:
	int Handle = -1;
};
