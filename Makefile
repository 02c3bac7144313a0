# make run: installs what is missing, builds, opens Tavolet on a writable copy of demo/
# make test: installs what is missing, builds, runs every test headless
BUILD ?= build
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
DEMO ?= $(HOME)/.tavolet-demo

.PHONY: all deps configura build run test bench asan clean format

all: build

deps:
	@bash scripts/dipendenze.sh

configura: deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo

build: configura
	cmake --build $(BUILD) -j $(JOBS)

# Only what it runs: the program and tavolet-cli, not the test programs.
run: configura
	@bash scripts/dipendenze.sh run
	cmake --build $(BUILD) -j $(JOBS) --target tavolet tavolet-cli
	@bash scripts/demo.sh "$(BUILD)" "$(DEMO)"

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

bench: deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=Release -DTAVOLET_BENCH=ON
	cmake --build $(BUILD) -j $(JOBS)
	@for b in $(BUILD)/bench/bench_*; do [ -f "$$b" ] && [ -x "$$b" ] && "$$b"; done; true

asan: deps
	cmake -S . -B build-asan -DCMAKE_BUILD_TYPE=Debug -DTAVOLET_ASAN=ON
	cmake --build build-asan -j $(JOBS)
	cd build-asan && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

format:
	clang-format -i $$(git ls-files '*.cpp' '*.h')

clean:
	rm -rf $(BUILD) build-asan
