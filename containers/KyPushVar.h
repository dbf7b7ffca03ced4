// KyPushVar<T>: sets a variable for the length of a scope and puts the old
// value back when the scope ends, by return or by exception.
#pragma once

template <class T>
class KyPushVar {
 public:
  KyPushVar(T &variable, T const &value) : m_saved(variable), m_pVar(&variable) { variable = value; }
  KyPushVar(KyPushVar const &) = delete;
  KyPushVar &operator=(KyPushVar const &) = delete;
  virtual ~KyPushVar() { *m_pVar = m_saved; }

 protected:
  T m_saved;
  T *m_pVar;
};
