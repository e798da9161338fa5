#pragma once

// Keeps large freed blocks in the process while a job writes its pages. Qt's PDF writer takes
// two buffers of 10 MB and more to compress every page and frees them again; by default the C
// library hands such blocks back to the system at once, and the next page pays for mapping and
// clearing them anew. While a HeapReuse is alive, blocks of that size come from the heap and
// stay there for the next page; when it goes, the free memory is given back.

namespace zantor {

class HeapReuse {
  public:
    HeapReuse();
    ~HeapReuse();
    HeapReuse(const HeapReuse&) = delete;
    HeapReuse& operator=(const HeapReuse&) = delete;
};

}  // namespace zantor
