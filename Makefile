# make run: installs what is missing, builds, opens Tavolet on a writable copy of demo/
# make test: installs what is missing, builds, runs every test headless
BUILD ?= build
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
DEMO ?= $(HOME)/.tavolet-demo

.PHONY: all deps configura build run test bench asan coverage fuzz clean format

all: build

deps:
	@bash scripts/dipendenze.sh

configura: deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=Release "-DCMAKE_CXX_FLAGS_RELEASE=-O1 -DNDEBUG"

build: configura
	cmake --build $(BUILD) -j $(JOBS)

# Only what it runs: the program and tavolet-cli, not the test programs.
run: configura
	@bash scripts/dipendenze.sh run
	cmake --build $(BUILD) -j $(JOBS) --target tavolet tavolet-cli
	@bash scripts/demo.sh "$(BUILD)" "$(DEMO)"

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

# The benchmarks in their own directory, at -O2.
bench: deps
	cmake -S . -B build-bench -DCMAKE_BUILD_TYPE=Release "-DCMAKE_CXX_FLAGS_RELEASE=-O2 -DNDEBUG" \
		-DTAVOLET_BENCH=ON
	cmake --build build-bench -j $(JOBS)
	@for b in build-bench/bench/bench_*; do [ -f "$$b" ] && [ -x "$$b" ] && "$$b"; done; true

asan: deps
	cmake -S . -B build-asan -DCMAKE_BUILD_TYPE=Debug -DTAVOLET_ASAN=ON
	cmake --build build-asan -j $(JOBS)
	cd build-asan && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

# Line coverage of the program by the whole suite, per folder (gcovr), on a --coverage Debug build.
coverage: deps
	@bash scripts/dipendenze.sh coverage
	cmake -S . -B build-cov -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS=--coverage -DTAVOLET_UNITY=OFF \
		-DCMAKE_EXE_LINKER_FLAGS=--coverage
	cmake --build build-cov -j $(JOBS)
	find build-cov -name '*.gcda' -delete
	cd build-cov && QT_QPA_PLATFORM=offscreen ctest -j $(JOBS) || true
	@bash scripts/copertura.sh build-cov $(JOBS) | tee build-cov/copertura.txt

# Every reader under libFuzzer with the sanitizers, FUZZ_S seconds each (scripts/fuzz.sh).
fuzz:
	JOBS=$(JOBS) bash scripts/fuzz.sh

format:
	clang-format -i $$(git ls-files '*.cpp' '*.h')

clean:
	rm -rf $(BUILD) build-asan build-cov build-fuzz build-bench
