// The project at the size of a large building and a long project life:
//  - a project file of 2,000 floor rows and 20,000 drawing files in nested
//    directories: ReadFromXML, GetFloorFiles, GetDwgSetFiles, IsConnectFloors;
//    GetFloorFiles and IsConnectFloors also at 200 floors, to show how their
//    time grows with the number of floors (each file is compared with all
//    before it, without regard to case);
//  - a project database of 20 regions x 50 floors x 5 sub-floors with 1,000
//    views and 200 drawings: ReadFromXML, GetAllFloor over every region,
//    GetAllView, Save.
// The files are written once into $TOLV_BENCH_DIR (default: the system's
// temporary folder).
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "module/TolvDataBase.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/mfc/AfxMessage.h"
#include "platform/windows/PathMap.h"

namespace fs = std::filesystem;

namespace {

fs::path BenchDir() {
  const char *dir = std::getenv("TOLV_BENCH_DIR");
  fs::path path = fs::path(dir ? dir : fs::temp_directory_path().string()) / "tolv-bench-project";
  fs::create_directories(path);
  return path;
}

// A project file with `floors` floor rows, numbered 1 up, each with its own
// drawing, and 20,000 drawings in the set: 20 folders of 10 sub-folders of
// 100 files.
std::wstring ProjectFile(int floors) {
  fs::path file = BenchDir() / ("project-" + std::to_string(floors) + ".xml");
  if (!fs::exists(file)) {
    std::ofstream out(file);
    out << "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<TolvProject name=\"Bench\">\n"
           "<Directory name=\"FLOOR_TABLE\">\n";
    for (int i = 1; i <= floors; ++i) {
      out << "<Floor name=\"Floors\\F" << i << ".dwg\" number=\"" << i
          << "\" height=\"3000\" ptbase=\"0,0," << i * 3000 << "\" extent=\"0,0,42000,18000\"/>\n";
    }
    out << "</Directory>\n<Directory name=\"DWG_SET\">\n";
    for (int a = 0; a < 20; ++a) {
      out << "<Directory name=\"D" << a << "\">\n";
      for (int b = 0; b < 10; ++b) {
        out << "<Directory name=\"S" << b << "\">\n";
        for (int c = 0; c < 100; ++c) {
          out << "<File name=\"D" << a << "\\S" << b << "\\Sheet-" << c << ".dwg\"/>\n";
        }
        out << "</Directory>\n";
      }
      out << "</Directory>\n";
    }
    out << "</Directory>\n</TolvProject>\n";
  }
  return tolv::ToSystemPath(file.string());
}

std::wstring DatabaseFile() {
  fs::path file = BenchDir() / "database.orpx";
  if (!fs::exists(file)) {
    KyDtProjectDb db;
    db.BindDict();
    for (int v = 0; v < 1000; ++v) {
      KyDtProjectView *view = db.Views().AddView((L"V" + std::to_wstring(v)).c_str());
      view->SetPrintScale(100);
      view->SetViewType(L"PLAN");
      view->SetViewDirection(AcGeVector3d(0, 0, -1), AcGeVector3d(0, 1, 0));
      view->Dict()->SetRef(L"DRAWING", (L"DRAWINGS\\S" + std::to_wstring(v / 5)).c_str());
      delete view;
    }
    for (int d = 0; d < 200; ++d) {
      KyDtProjectDrawing *drawing = db.Drawings().AddDrawing((L"S" + std::to_wstring(d)).c_str());
      for (int k = 0; k < 5; ++k) drawing->AddViewDef()->m_value = (L"VIEWS\\V" + std::to_wstring(d * 5 + k)).c_str();
      delete drawing;
    }
    for (int r = 0; r < 20; ++r) {
      KyDtProjectRegion *region = db.Models().AddRegion((L"R" + std::to_wstring(r)).c_str());
      region->SetBasePoint(AcGePoint3d(r * 50000.0, 0, 0));
      for (int f = 0; f < 50; ++f) {
        KyDtPrjFloor *floor = region->AddFloor((L"F" + std::to_wstring(f)).c_str());
        floor->SetHeight(3000);
        floor->Dict()->SetRef(L"FLOOR_MODEL\\FLOOR_VIEW", (L"VIEWS\\V" + std::to_wstring((r * 50 + f) % 1000)).c_str());
        for (int s = 0; s < 5; ++s) delete floor->AddSubFloor((L"M" + std::to_wstring(s)).c_str());
        delete floor;
      }
      delete region;
    }
    db.SaveToXML(tolv::ToSystemPath(file.string()).c_str());
  }
  return tolv::ToSystemPath(file.string());
}

void Quiet() {
  tolv::SetCommandLineSink([](const std::wstring &) {});
  tolv::SetMessageBoxSink([](const std::wstring &, unsigned) { return IDOK; });
}

void BM_ProjectReadFromXML(benchmark::State &state) {
  Quiet();
  const std::wstring path = ProjectFile(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    KyDtProject project;
    benchmark::DoNotOptimize(project.ReadFromXML(path.c_str()));
  }
}
BENCHMARK(BM_ProjectReadFromXML)->Arg(2000)->Unit(benchmark::kMillisecond);

void BM_GetFloorFiles(benchmark::State &state) {
  Quiet();
  KyDtProject project;
  project.ReadFromXML(ProjectFile(static_cast<int>(state.range(0))).c_str());
  for (auto _ : state) {
    KyDList<CString> files;
    benchmark::DoNotOptimize(project.GetFloorFiles(files));
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_GetFloorFiles)->Arg(200)->Arg(2000)->Unit(benchmark::kMicrosecond)->Complexity();

void BM_GetDwgSetFiles(benchmark::State &state) {
  Quiet();
  KyDtProject project;
  project.ReadFromXML(ProjectFile(2000).c_str());
  for (auto _ : state) {
    KyDList<CString> files;
    benchmark::DoNotOptimize(project.GetDwgSetFiles(files));
  }
}
BENCHMARK(BM_GetDwgSetFiles)->Unit(benchmark::kMillisecond);

void BM_IsConnectFloors(benchmark::State &state) {
  Quiet();
  KyDtProject project;
  project.ReadFromXML(ProjectFile(static_cast<int>(state.range(0))).c_str());
  for (auto _ : state) benchmark::DoNotOptimize(project.IsConnectFloors(false));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_IsConnectFloors)->Arg(200)->Arg(2000)->Unit(benchmark::kMicrosecond)->Complexity();

void BM_DatabaseReadFromXML(benchmark::State &state) {
  Quiet();
  const std::wstring path = DatabaseFile();
  for (auto _ : state) {
    KyDtProjectDb db;
    benchmark::DoNotOptimize(db.ReadFromXML(path.c_str()));
  }
}
BENCHMARK(BM_DatabaseReadFromXML)->Unit(benchmark::kMillisecond);

void BM_DatabaseGetAllFloor(benchmark::State &state) {
  Quiet();
  KyDtProjectDb db;
  db.ReadFromXML(DatabaseFile().c_str());
  KyPDList<KyDtProjectRegion> regions;
  db.Models().GetAllRegion(regions);
  for (auto _ : state) {
    std::int32_t count = 0;
    for (std::int32_t i = 0; i < regions.GetLength(); ++i) {
      KyPDList<KyDtPrjFloor> floors;
      regions.GetAt(i)->GetAllFloor(floors);
      count += floors.GetLength();
    }
    benchmark::DoNotOptimize(count);
  }
}
BENCHMARK(BM_DatabaseGetAllFloor)->Unit(benchmark::kMicrosecond);

void BM_DatabaseGetAllView(benchmark::State &state) {
  Quiet();
  KyDtProjectDb db;
  db.ReadFromXML(DatabaseFile().c_str());
  for (auto _ : state) {
    KyPDList<KyDtProjectView> views;
    db.Views().GetAllView(views);
    benchmark::DoNotOptimize(views.GetLength());
  }
}
BENCHMARK(BM_DatabaseGetAllView)->Unit(benchmark::kMicrosecond);

void BM_DatabaseSave(benchmark::State &state) {
  Quiet();
  KyDtProjectDb db;
  db.ReadFromXML(DatabaseFile().c_str());
  const std::wstring out = tolv::ToSystemPath((BenchDir() / "database-saved.orpx").string());
  for (auto _ : state) benchmark::DoNotOptimize(db.SaveToXML(out.c_str()));
}
BENCHMARK(BM_DatabaseSave)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
