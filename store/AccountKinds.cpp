#include "store/AccountKinds.h"

bool IsAdult(const QString& kind) {
    return kind == AccountKind::Parent || kind == AccountKind::Teacher;
}

bool IsChild(const QString& kind) {
    return kind == AccountKind::Kid || kind == AccountKind::Student;
}

bool IsStoredAdult(const QString& kind) {
    return kind == AccountKind::Teacher;
}

bool IsStoredChild(const QString& kind) {
    return kind == AccountKind::Student;
}
