#pragma once

#include "SmallBlueprint.h"

/** Properties of every kind, for the Blueprint of a small package. */
namespace BinaryTestValues
{
void WritePlainValues(FTestPackage& Package, FObjectBytes& Out);
void WriteContainers(FTestPackage& Package, FObjectBytes& Out);
void WriteStructs(FTestPackage& Package, FObjectBytes& Out);
void WriteTexts(FTestPackage& Package, FObjectBytes& Out);
void WriteSoftPaths(FTestPackage& Package, FObjectBytes& Out);

const std::vector<SmallBlueprint::FExtra>& All();

template <class TNumber>
std::string Number(const TNumber Value)
{
	FByteWriter Out;
	Out.Put(Value);
	return Out.Bytes;
}
} // namespace BinaryTestValues
