#pragma once

#include <array>
#include <string_view>

/** The protocol revisions that this server speaks. */
namespace Revisions
{
/** Needs no handshake: every request says which revision it is written in. */
constexpr std::string_view Modern = "2026-07-28";

/** Reached by initialize, newest first. */
constexpr std::array<std::string_view, 4> Legacy = {"2025-11-25", "2025-06-18", "2025-03-26", "2024-11-05"};

/**
 * What initialize answers: the revision asked for if we speak it, else our newest of that kind. Never the modern one,
 * since clients break off when a handshake ends there.
 */
std::string_view Negotiate(std::string_view Requested);

/** All of them as a JSON array, the modern one first. */
std::string_view ListJson();
} // namespace Revisions

/** Keys that requests and results of the modern revision carry under "_meta". */
namespace MetaKey
{
constexpr std::string_view ProtocolVersion = "io.modelcontextprotocol/protocolVersion";
constexpr std::string_view ClientCapabilities = "io.modelcontextprotocol/clientCapabilities";
constexpr std::string_view ServerInfo = "io.modelcontextprotocol/serverInfo";
constexpr std::string_view SubscriptionId = "io.modelcontextprotocol/subscriptionId";
} // namespace MetaKey
