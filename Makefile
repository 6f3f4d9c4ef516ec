# The two commands of the README are `make run` and `make test`; each installs what is missing.

BUILD := build
GENERATOR := $(if $(shell command -v ninja),Ninja,Unix Makefiles)
JOBS := $(shell nproc)
# A room at a time: everything is built in a third of the time, one change in more.
UNITY := -DCMAKE_UNITY_BUILD=ON
SOURCES = $(shell git ls-files '*.h' '*.cpp')

# Of "make fuzz": how long inputs are made up for each target.
SECONDS ?= 30

.PHONY: all install deb dist chroot-round manual recordings run test ide-plugins ide-test faults faults-sample fuzz tsan bench lint dependencies test-dependencies \
	bench-dependencies ide-dependencies ide-test-dependencies lint-dependencies sanitize-dependencies package-dependencies \
	manual-dependencies clean

# With IDE=1 "all" and "test" build the plug-ins for IDEs too, and test them in the real IDEs.
IDE ?=
PLUGINS = -DDEPLOYMENT_IDE_PLUGINS=$(if $(IDE),ON,OFF)

all: $(if $(IDE),ide-dependencies,dependencies)
	@cmake -S . -B $(BUILD) -G "$(GENERATOR)" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
		-DBUILD_TESTING=OFF -DDEPLOYMENT_BENCH=OFF $(PLUGINS) $(UNITY) > $(BUILD).log 2>&1 \
		|| { cat $(BUILD).log; rm -f $(BUILD).log; exit 1; }
	@rm -f $(BUILD).log
	@cmake --build $(BUILD) -j $(JOBS)

# A directory of its own for what is not to be the system's: make install PREFIX=~/programs
PREFIX ?= /usr/local
install: all
	DESTDIR="$(DESTDIR)" cmake --install $(BUILD) --prefix "$(PREFIX)" --strip

# The Debian packages, into build-deb; the archive for build servers, into build-dist.
# DEB_BUILD_PROFILES=pkg.deployment-manager.noide leaves the plug-ins of IDEs out.
deb: package-dependencies $(if $(findstring noide,$(DEB_BUILD_PROFILES)),,ide-dependencies)
	packaging/build_deb.sh $(BUILD)-deb
dist: dependencies
	packaging/build_dist.sh $(BUILD)-dist
# Both in a clean Debian 12: installed, used, purged. As root.
chroot-round: deb dist
	packaging/chroot_round.sh $(BUILD)-deb $(BUILD)-dist/deploymgr-*.tar.gz

# The pages of docs as one manual to read in a browser: build/manual/index.html
manual: manual-dependencies
	packaging/build_manual.py . $(BUILD)/manual

# What the completions offer, recorded from the shells themselves for the guide.
recordings: all
	@tools/install_dependencies.sh recording
	tools/record_completions.py $(BUILD)/bin

run: all
	@tools/tour.sh $(BUILD)/bin

test: $(if $(IDE),ide-test-dependencies,test-dependencies)
	cmake -S . -B $(BUILD) -G "$(GENERATOR)" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DBUILD_TESTING=ON \
		$(PLUGINS) $(UNITY)
	cmake --build $(BUILD) -j $(JOBS)
	ctest --test-dir $(BUILD) -j $(JOBS) --output-on-failure

# The plug-ins for KDevelop and Kate, and their tests in the real IDEs, whose pictures are left in
# build-ide/ide-pictures.
IDE_OPTIONS = -G "$(GENERATOR)" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DDEPLOYMENT_IDE_PLUGINS=ON $(UNITY)
ide-plugins: ide-dependencies
	cmake -S . -B $(BUILD)-ide $(IDE_OPTIONS) -DBUILD_TESTING=OFF
	cmake --build $(BUILD)-ide -j $(JOBS) --target ide_plugins
ide-test: ide-test-dependencies
	cmake -S . -B $(BUILD)-ide $(IDE_OPTIONS) -DBUILD_TESTING=ON
	cmake --build $(BUILD)-ide -j $(JOBS) --target ide_plugins
	ctest --test-dir $(BUILD)-ide -R '^Ide\.' --output-on-failure

# Every system call of every scenario fails or kills the program once; the sample hits 600 of them.
FAULTS = $(BUILD)/bin/fault_runner --programs $(BUILD)/bin --root $(CURDIR) --jobs $(JOBS)
faults faults-sample: test-dependencies
	cmake -S . -B $(BUILD) -G "$(GENERATOR)" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DDEPLOYMENT_FAULTS=ON \
		$(UNITY)
	cmake --build $(BUILD) -j $(JOBS) --target fault_runner
	$(FAULTS) $(if $(filter faults-sample,$@),--sample 600) $(FAULT_OPTIONS)

# The corpus of each target first, then inputs that are made up: make fuzz SECONDS=600
# FUZZ_OPTIONS=-seed=1 makes up the same ones each time.
fuzz: sanitize-dependencies
	cmake --preset asan-ubsan
	cmake --build --preset asan-ubsan -j $(JOBS) --target fuzz_targets
	FUZZ_OPTIONS='$(FUZZ_OPTIONS)' fuzz/run.sh build-asan-ubsan/bin $(SECONDS)

# What runs on several threads, deploys and connections, under ThreadSanitizer.
tsan: sanitize-dependencies
	cmake --preset tsan
	cmake --build --preset tsan -j $(JOBS) --target threaded_tests
	build-tsan/bin/threaded_tests --gtest_brief=1

bench: bench-dependencies
	cmake -S . -B $(BUILD)-release -G "$(GENERATOR)" -DCMAKE_BUILD_TYPE=Release \
		-DBUILD_TESTING=OFF -DDEPLOYMENT_BENCH=ON $(UNITY)
	cmake --build $(BUILD)-release -j $(JOBS)
	ZELK=$(CURDIR) $(BUILD)-release/bin/deployment_bench

# Formatting, then the short list of .clang-tidy, in which every finding is an error.
lint: lint-dependencies
	clang-format-14 --dry-run -Werror $(SOURCES)
	cmake -S . -B $(BUILD)-lint -G "$(GENERATOR)" -DCMAKE_CXX_COMPILER=clang++-14 \
		-DCMAKE_BUILD_TYPE=Debug -DBUILD_TESTING=OFF $(UNITY)
	cmake --build $(BUILD)-lint -j $(JOBS) --target generated_sources
	run-clang-tidy-14 -quiet -j $(JOBS) -p $(BUILD)-lint \
		-header-filter='^$(CURDIR)/(package|workbench)/' '/Unity/'

dependencies:
	@tools/install_dependencies.sh build
test-dependencies:
	@tools/install_dependencies.sh build test
bench-dependencies:
	@tools/install_dependencies.sh build bench
sanitize-dependencies:
	@tools/install_dependencies.sh build sanitize
ide-dependencies:
	@tools/install_dependencies.sh build ide
ide-test-dependencies:
	@tools/install_dependencies.sh build test ide ide-test
package-dependencies:
	@tools/install_dependencies.sh build package
manual-dependencies:
	@tools/install_dependencies.sh manual
lint-dependencies:
	@tools/install_dependencies.sh build lint

clean:
	rm -rf $(BUILD) $(BUILD)-*
