#pragma once
// A run-time error, thrown where the old platform raised one, caught by the handlers that catch theirs.
#include <QString>
#include <exception>
#include <string>
#include <utility>

namespace basic {

class RuntimeError : public std::exception {
public:
    RuntimeError() = default;
    RuntimeError(int number, QString description, QString source = QStringLiteral("Vorlan"))
        : number_(number), description_(std::move(description)), source_(std::move(source)),
          what_(description_.toStdString()) {}

    int number() const { return number_; }
    const QString& description() const { return description_; }
    const QString& source() const { return source_; }
    const char* what() const noexcept override { return what_.c_str(); }

    // " | No: 13 | Src: Vorlan": the tail that every error box of the system appends to the description.
    QString detail() const;

private:
    int number_ = 0;
    QString description_;
    QString source_;
    std::string what_;
};

// The language's standard errors, with their numbers and texts.
RuntimeError typeMismatch();          // 13 "Type mismatch"
RuntimeError invalidUseOfNull();      // 94 "Invalid use of Null"
RuntimeError overflowError();         // 6 "Overflow"

// The pending error after a statement that ran with errors ignored: number 0 when it succeeded.
// Any std::exception that is not a RuntimeError is taken as error 5 with its what() as description.
template <class F>
RuntimeError resume(F&& statement) {
    try {
        statement();
    } catch (const RuntimeError& e) {
        return e;
    } catch (const std::exception& e) {
        return RuntimeError(5, QString::fromUtf8(e.what()));
    }
    return RuntimeError();
}

}  // namespace basic
