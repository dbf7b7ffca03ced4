// A sibling module of the add-on, built outside the tree against the
// installed package, reaching the data layer through its public interface.
#include <TolvDataBase.h>

#include <cstdio>

int main() {
  CString text(L"Tolv");
  text += L" sibling";
  if (text.GetLength() != 12 || text.Find(L"sib") != 5) {
    std::printf("CString misbehaves\n");
    return 1;
  }
  std::printf("sibling module linked against the installed package: api %d\n",
              acrxGetApiVersion());
  return 0;
}
