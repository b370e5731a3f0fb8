#include "JsonLine.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace orr::cli {

void JsonLine::key(const char* name) {
    if (!body_.empty()) body_ += ',';
    body_ += '"';
    body_ += name;
    body_ += "\":";
}

JsonLine& JsonLine::add(const char* name, const QJsonValue& value) {
    key(name);
    // QJsonDocument writes arrays and objects only: the value is written as [value], unwrapped.
    const std::string wrapped =
        QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).toStdString();
    body_ += wrapped.substr(1, wrapped.size() - 2);
    return *this;
}

JsonLine& JsonLine::add(const char* name, const JsonLine& object) {
    key(name);
    body_ += object.text();
    return *this;
}

JsonLine& JsonLine::merge(const JsonLine& other) {
    if (!body_.empty() && !other.body_.empty()) body_ += ',';
    body_ += other.body_;
    return *this;
}

}  // namespace orr::cli
