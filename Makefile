# The front door. Every target sets up what it needs by itself.
.DEFAULT_GOAL := help
.PHONY: help setup build run shell test format format-check lint clean

help: ## This list
	@awk -F ':.*## ' '/^[a-z-]+:.*## / { printf "  make %-13s %s\n", $$1, $$2 }' $(MAKEFILE_LIST)

setup: ## Packages, cross-built libraries and the Wine prefix
	@tools/setup-packages
	@tools/setup-dependencies
	@tools/setup-prefix

build: setup ## Cross-build the module, the stand-in host and the tests
	@tools/build

test: build ## Run every test
	@tools/wine-session ctest --preset drafthost

run: build ## Start drafthost with the module and the demo installation; DAMAGED=1 breaks its config.xml first
	@tools/run-demo $(if $(DAMAGED),--damaged-config)

shell: build ## The same, and stay at the prompt
	@tools/run-demo --shell

format: ## Lay out the sources by .clang-format
	@tools/setup-packages
	@tools/format

format-check: ## Say which sources are not laid out by .clang-format
	@tools/setup-packages
	@tools/format --check

lint: build ## clang-tidy over every source
	@tools/lint

clean: ## Remove what was compiled; keeps libraries and the Wine prefix
	@rm -rf build/drafthost
