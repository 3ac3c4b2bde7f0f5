# The front door. Every target sets up what it needs by itself.
.DEFAULT_GOAL := help
.PHONY: help setup setup-tests programs build run shell gallery test test-heap format format-check lint bench soak clean

help: ## This list
	@awk -F ':.*## ' '/^[a-z-]+:.*## / { printf "  make %-13s %s\n", $$1, $$2 }' $(MAKEFILE_LIST)

setup: ## Packages, cross-built libraries and the Wine prefix: what `make run` needs
	@tools/setup-packages run
	@tools/setup-dependencies
	@tools/setup-prefix

setup-tests: ## What the tests need beside that
	@tools/setup-packages run test
	@$(MAKE) --no-print-directory setup
	@tools/setup-web-server

# Only what `make run` needs.
programs: setup
	@tools/build drafthost KVTCAD

build: setup-tests ## Cross-build the module, the stand-in host, the tests and the examples
	@tools/build

test: build ## The tests; the slow runs with the heap validated are in test-heap
	@tools/wine-session ctest --preset drafthost

test-heap: build ## The tests with the heap validated; `make test` has the quick ones
	@tools/wine-session ctest --preset heap

run: programs ## Start drafthost with module and demo; DAMAGED=1 breaks the config.xml first
	@tools/run-demo $(if $(filter-out 0,$(DAMAGED)),--damaged-config)

shell: programs ## The same, and stay at the prompt
	@tools/run-demo --shell

gallery: setup ## Try the tool tips in a window; without a display: take pictures of them
	@tools/build gallery
	@tools/run-gallery

format: ## Lay out the sources by .clang-format
	@tools/setup-packages checks
	@tools/format

format-check: ## Say which sources are not laid out by .clang-format
	@tools/setup-packages checks
	@tools/format --check

lint: setup ## clang-tidy over every source
	@tools/setup-packages checks
	@tools/setup-dependencies bench
	@tools/lint

bench: setup-tests ## Time our code beside the bare calls; the table goes to build/bench
	@tools/setup-dependencies bench
	@tools/run-bench

soak: setup-tests ## Thousands of rounds of everything; fails when anything grows
	@tools/run-soak

clean: ## Remove what was compiled; keeps libraries and the Wine prefix
	@rm -rf build/drafthost
