#pragma once

#include <QMetaMethod>
#include <QMetaObject>
#include <QStringList>

namespace TestSupport {

inline QString described(const QMetaMethod& method)
{
    const QString kind = method.methodType() == QMetaMethod::Signal ? "signal"
        : method.methodType() == QMetaMethod::Slot                  ? "slot"
                                                                    : "method";
    const QString access = method.access() == QMetaMethod::Public ? "public" : "hidden";
    QStringList parameters;
    for (int index = 0; index < method.parameterCount(); ++index) {
        const QString name = method.parameterNames().at(index);
        const QString type = method.parameterTypes().at(index);
        parameters.append(name.isEmpty() ? type : type + ' ' + name);
    }
    return access + ' ' + kind + ' ' + method.name() + '(' + parameters.join(", ") + ')';
}

/// A class's own signals, slots and other methods in their order, each as in
/// "public slot start(bool withraise)".
inline QStringList ownMethods(const QMetaObject& type)
{
    QStringList methods;
    for (int index = type.methodOffset(); index < type.methodCount(); ++index)
        methods.append(described(type.method(index)));
    return methods;
}

/// Whether the class declares nothing but methods to the meta-object system.
inline bool hasMethodsOnly(const QMetaObject& type)
{
    return type.propertyCount() == type.propertyOffset()
        && type.enumeratorCount() == type.enumeratorOffset()
        && type.classInfoCount() == type.classInfoOffset() && type.constructorCount() == 0;
}

}
