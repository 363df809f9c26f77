#include "adapters/qt/PropertyJson.h"

#include <nlohmann/json.hpp>

#include <QByteArray>
#include <QString>

#include <cmath>
#include <limits>

namespace larkspan::qt {

namespace {

using Json = nlohmann::ordered_json;

constexpr int deepest = 64;

std::string toBase64(const std::string& bytes) {
    const auto length = static_cast<qsizetype>(bytes.size());
    return QByteArray(bytes.data(), length).toBase64().toStdString();
}

std::optional<std::string> fromBase64(const Json& json) {
    if (!json.is_string()) return std::nullopt;
    const auto decoded =
        QByteArray::fromBase64Encoding(QByteArray::fromStdString(json.get<std::string>()),
                                       QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded) return std::nullopt;
    return decoded.decoded.toStdString();
}

bool isUtf8(const std::string& text) {
    return QUtf8StringView(text).isValidUtf8();
}

Json toJson(const PropertyValue& value);

Json toJson(const PropertyValue::Dictionary& dictionary) {
    Json json = Json::object();
    for (const auto& [key, value] : dictionary) {
        if (isUtf8(key)) json[key] = toJson(value);
    }
    return json;
}

struct ToJson {
    Json operator()(bool boolean) const { return boolean; }
    Json operator()(std::int64_t number) const { return number; }
    Json operator()(double number) const {
        if (std::isfinite(number)) return number;
        if (std::isnan(number)) return {{"$number", "nan"}};
        return {{"$number", number > 0 ? "inf" : "-inf"}};
    }
    Json operator()(const std::string& text) const {
        if (isUtf8(text)) return text;
        return {{"$text", toBase64(text)}};
    }
    Json operator()(const Data& data) const { return {{"$data", toBase64(data.bytes)}}; }
    Json operator()(const PropertyValue::Array& array) const {
        Json json = Json::array();
        for (const auto& element : array) {
            json.push_back(toJson(element));
        }
        return json;
    }
    Json operator()(const PropertyValue::Dictionary& dictionary) const {
        Json json = toJson(dictionary);
        const bool looksWrapped = json.size() == 1 && json.begin().key().starts_with('$');
        if (!looksWrapped) return json;
        Json wrapped = Json::object();
        wrapped["$dictionary"] = std::move(json);
        return wrapped;
    }
};

Json toJson(const PropertyValue& value) {
    return std::visit(ToJson{}, value.value);
}

std::optional<PropertyValue> fromJson(const Json& json, int depth);

std::optional<PropertyValue::Dictionary> dictionaryFrom(const Json& json, int depth) {
    PropertyValue::Dictionary dictionary;
    for (const auto& [key, element] : json.items()) {
        if (element.is_null()) continue;
        auto value = fromJson(element, depth + 1);
        if (!value) return std::nullopt;
        dictionary.emplace(key, std::move(*value));
    }
    return dictionary;
}

std::optional<PropertyValue> numberFrom(const Json& json) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    if (json == "nan") return PropertyValue(std::numeric_limits<double>::quiet_NaN());
    if (json == "inf") return PropertyValue(infinity);
    if (json == "-inf") return PropertyValue(-infinity);
    return std::nullopt;
}

/// The value that an object with the single key `key` represents.
std::optional<PropertyValue> unwrapped(const std::string& key, const Json& content, int depth) {
    if (key == "$number") return numberFrom(content);
    if (key == "$dictionary" && content.is_object()) return dictionaryFrom(content, depth);
    auto bytes = fromBase64(content);
    if (!bytes) return std::nullopt;
    if (key == "$data") return PropertyValue(Data{std::move(*bytes)});
    if (key == "$text") return PropertyValue(std::move(*bytes));
    return std::nullopt;
}

std::optional<PropertyValue> fromJson(const Json& json, int depth) {
    if (depth > deepest) return std::nullopt;
    switch (json.type()) {
    case Json::value_t::boolean:
        return PropertyValue(json.get<bool>());
    case Json::value_t::number_integer:
        return PropertyValue(json.get<std::int64_t>());
    case Json::value_t::number_unsigned: {
        const auto number = json.get<std::uint64_t>();
        constexpr auto largest = std::numeric_limits<std::int64_t>::max();
        if (number > static_cast<std::uint64_t>(largest))
            return PropertyValue(static_cast<double>(number));
        return PropertyValue(static_cast<std::int64_t>(number));
    }
    case Json::value_t::number_float:
        return PropertyValue(json.get<double>());
    case Json::value_t::string:
        return PropertyValue(json.get<std::string>());
    case Json::value_t::array: {
        PropertyValue::Array array;
        for (const auto& element : json) {
            if (element.is_null()) continue;
            auto value = fromJson(element, depth + 1);
            if (!value) return std::nullopt;
            array.push_back(std::move(*value));
        }
        return PropertyValue(std::move(array));
    }
    case Json::value_t::object: {
        if (json.size() == 1 && json.begin().key().starts_with('$'))
            return unwrapped(json.begin().key(), json.begin().value(), depth);
        auto dictionary = dictionaryFrom(json, depth);
        if (!dictionary) return std::nullopt;
        return PropertyValue(std::move(*dictionary));
    }
    default:
        return std::nullopt;
    }
}

} // namespace

std::string jsonText(const PropertyValue::Dictionary& values) {
    return toJson(values).dump(2) + "\n";
}

std::optional<PropertyValue::Dictionary> parseJsonText(std::string_view text) {
    const Json json = Json::parse(text, nullptr, false);
    if (!json.is_object()) return std::nullopt;
    return dictionaryFrom(json, 0);
}

} // namespace larkspan::qt
