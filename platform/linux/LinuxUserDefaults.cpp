// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxUserDefaults.h"

#include "base/AtomicFile.h"
#include "base/JSONNesting.h"
#include "base/Text.h"
#include "base/Timestamp.h"

#include <nlohmann/json.hpp>

#include <cmath>

#include <fcntl.h>
#include <stdio.h>

namespace orrinvale
{

namespace fs = std::filesystem;
using json = nlohmann::ordered_json;

namespace
{

constexpr auto dateMember = "date";
constexpr auto dataMember = "data";
constexpr std::uint64_t largestFile = 4 * 1024 * 1024; // a hundred times what a long watch list takes
constexpr int mostSetAside = 100;

std::optional<DefaultsValue> fromObject(const json& value)
{
    const auto text = [&](const char* name) -> const std::string* {
        const auto member = value.find(name);
        return member != value.end() && value.size() == 1 ? member->get_ptr<const std::string*>() : nullptr;
    };
    if (const auto* date = text(dateMember)) {
        if (const auto instant = timestampFromText(*date))
            return *instant;
        return std::nullopt;
    }
    if (const auto* data = text(dataMember))
        return DefaultsData{*data};
    return DefaultsData{value.dump()};
}

std::optional<DefaultsValue> fromJson(const json& value)
{
    switch (value.type()) {
    case json::value_t::boolean:
        return value.get<bool>();
    case json::value_t::number_unsigned:
        if (value.get<std::uint64_t>() > INT64_MAX)
            return std::nullopt;
        return value.get<std::int64_t>();
    case json::value_t::number_integer:
        return value.get<std::int64_t>();
    case json::value_t::number_float:
        return value.get<double>();
    case json::value_t::string:
        return value.get<std::string>();
    case json::value_t::array:
        return DefaultsData{value.dump()};
    case json::value_t::object:
        return fromObject(value);
    default:
        return std::nullopt;
    }
}

struct ToJson {
    json operator()(bool value) const { return value; }
    json operator()(std::int64_t value) const { return value; }
    json operator()(double value) const { return std::isfinite(value) ? json(value) : json(nullptr); }
    json operator()(const std::string& value) const { return validUtf8(value); }
    json operator()(Instant value) const { return {{dateMember, timestampText(value)}}; }
    json operator()(const DefaultsData& value) const
    {
        auto parsed = json::parse(value.bytes, nullptr, false);
        return parsed.is_array() ? parsed : json{{dataMember, validUtf8(value.bytes)}};
    }
};

bool isBlank(const std::string& text)
{
    return text.find_first_not_of(" \t\r\n") == text.npos;
}

// No object when the text is no settings.
json parsed(const std::string& text)
{
    if (isBlank(text))
        return json::object();
    return isNestedTooDeep(text) ? json() : json::parse(text, nullptr, false);
}

} // namespace

LinuxUserDefaults::LinuxUserDefaults(fs::path file)
    : m_file(std::move(file)), m_values(std::make_unique<json>(json::object())),
      m_unwritten(std::make_unique<json>(json::object()))
{
    load();
}

LinuxUserDefaults::~LinuxUserDefaults() = default;

bool LinuxUserDefaults::load()
{
    using Result = FileReading::Result;
    const auto reading = readFile(m_file, largestFile);
    if (reading.result == Result::missing)
        return true;
    if (reading.result == Result::refused)
        return false;
    auto stored = reading.result == Result::whole ? parsed(reading.bytes) : json();
    // What was read before, if anything, is what the user last chose.
    if (!stored.is_object())
        return setAside();
    take(std::move(stored));
    return true;
}

// A date tells when something first happened: one that is stored stands against one from a start without the file.
void LinuxUserDefaults::take(json stored)
{
    for (const auto& [key, value] : m_unwritten->items()) {
        if (!value.is_object() || !value.contains(dateMember) || !stored.contains(key))
            stored[key] = value;
    }
    *m_values = std::move(stored);
}

bool LinuxUserDefaults::setAside() const
{
    for (int number = 1; number <= mostSetAside; ++number) {
        auto name = m_file;
        name += number == 1 ? ".unreadable" : ".unreadable-" + std::to_string(number);
        if (::renameat2(AT_FDCWD, m_file.c_str(), AT_FDCWD, name.c_str(), RENAME_NOREPLACE) == 0)
            return true;
    }
    return false;
}

std::optional<DefaultsValue> LinuxUserDefaults::object(const std::string& key)
{
    const auto member = m_values->find(key);
    return member == m_values->end() ? std::nullopt : fromJson(*member);
}

void LinuxUserDefaults::set(const std::string& key, DefaultsValue value)
{
    const auto mayWrite = load();
    (*m_values)[key] = (*m_unwritten)[key] = std::visit(ToJson(), value);
    if (!mayWrite)
        return;
    std::error_code error;
    if (fs::create_directories(m_file.parent_path(), error))
        fs::permissions(m_file.parent_path(), fs::perms::owner_all, error);
    if (writeFileAtomically(m_file, m_values->dump(2, ' ', false, json::error_handler_t::replace) + "\n"))
        *m_unwritten = json::object();
}

} // namespace orrinvale
