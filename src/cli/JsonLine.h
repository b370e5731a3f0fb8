#pragma once
// A JSON object written with its keys in the order they were added ({"event":"box","text":...}),
// which QJsonObject, sorting its keys, cannot do.

#include <QJsonValue>
#include <string>

namespace orr::cli {

class JsonLine {
  public:
    JsonLine& add(const char* key, const QJsonValue& value);
    JsonLine& add(const char* key, const JsonLine& object);
    // Appends the members of `other`, in their order.
    JsonLine& merge(const JsonLine& other);
    // The object in compact form, without a line end.
    std::string text() const { return "{" + body_ + "}"; }

  private:
    void key(const char* name);
    std::string body_;
};

}  // namespace orr::cli
