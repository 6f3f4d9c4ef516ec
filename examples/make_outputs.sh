#!/bin/sh
# Builds the outputs of the example projects and the side files that go with them, for every
# platform and configuration, without the SDK of any platform.
#
#   make_outputs.sh                  writes PLATFORM/CONFIGURATION/ below each project
#   make_outputs.sh --run-time DIR   writes the run-time libraries that the projects take from
#                                    $(ZELK) below DIR
#
# Needs clang-14, lld-14, llvm-14, g++-mingw-w64-i686, g++-mingw-w64-x86-64 and python3. The files
# come out the same on every run.
set -eu
if [ "${1-}" = --run-time ]; then
  run_time_root=$(realpath -m "${2:?a directory is wanted}")
fi
cd "$(dirname "$0")"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

flags_of() { # CONFIGURATION
  case $1 in
    Debug) echo "-O0 -DTRACE" ;;
    Field) echo "-Os -DFIELD" ;;
    *) echo "-Os" ;;
  esac
}

compile() { # TARGET CONFIGURATION SOURCE OBJECT [FLAG...]
  target=$1 config=$2 source=$3 object=$4
  shift 4
  # shellcheck disable=SC2046 # a list of flags
  clang-14 -target "$target" -ffreestanding -Wno-stdlibcxx-not-found -fPIC -fno-unwind-tables -fvisibility=hidden \
    -fdebug-compilation-dir=. $(flags_of "$config") "$@" -c "$source" -o "$object"
}

target_of() { # PLATFORM
  case $1 in
    Win32) echo i686-w64-mingw32 ;;
    Win64) echo x86_64-w64-mingw32 ;;
    OSX32) echo i386-apple-macos10.12 ;;
    iOSSimulator) echo x86_64-apple-ios9-simulator ;;
    iOSDevice32) echo armv7-apple-ios9 ;;
    iOSDevice64) echo arm64-apple-ios9 ;;
    Linux64) echo x86_64-linux-gnu ;;
    LinuxARM64) echo aarch64-linux-gnu ;;
  esac
}

symbols() { # PLATFORM SOURCE FILE: what a debugger asks first, one symbol a line
  compile "$(target_of "$1")" Debug "$2" "$scratch/symbols.o"
  llvm-nm-14 --defined-only --no-sort "$scratch/symbols.o" >"$3"
}

# --- one program or library per kind of platform ---------------------------------------------------

windows() { # PLATFORM CONFIGURATION SOURCE OUTPUT [FLAG...]
  case $1 in
    Win32) compiler=i686-w64-mingw32-g++ entry=_RunProgram ;;
    *) compiler=x86_64-w64-mingw32-g++ entry=RunProgram ;;
  esac
  config=$2 source=$3 output=$4
  shift 4
  case $output in
    *.dll | *.vpk | *.de | *.fr | *.ja) set -- "$@" -shared -Wl,--entry=0 ;;
    *) set -- "$@" "-Wl,--entry=$entry" ;;
  esac
  # shellcheck disable=SC2046
  $compiler $(flags_of "$config") -nostdlib -fno-asynchronous-unwind-tables -s \
    -Wl,--no-insert-timestamp "$@" "$source" -o "$output"
  chmod 644 "$output"
}

# The linker knows 64-bit Apple targets only; for the others an object file stands for the output.
apple() { # PLATFORM CONFIGURATION SOURCE OUTPUT
  object=$scratch/apple.o
  compile "$(target_of "$1")" "$2" "$3" "$object"
  case $1 in
    iOSSimulator)
      ld64.lld-14 -arch x86_64 -platform_version ios-simulator 9.0 9.0 -e _RunProgram \
        -undefined dynamic_lookup "$object" -o "$4" ;;
    iOSDevice64)
      ld64.lld-14 -arch arm64 -platform_version ios 9.0 9.0 -e _RunProgram \
        -undefined dynamic_lookup "$object" -o "$4" ;;
    *) cp "$object" "$4" ;;
  esac
  chmod 755 "$4"
}

android() { # TARGET CONFIGURATION SOURCE OUTPUT
  compile "$1" "$2" "$3" "$scratch/android.o"
  ld.lld-14 -shared --soname "$(basename "$4")" --strip-all "$scratch/android.o" -o "$4"
  chmod 644 "$4"
}

# A library as its users find it: the file with its whole version, and the two links that lead to it.
linux_library() { # PLATFORM SOURCE DIRECTORY NAME VERSION
  mkdir -p "$3"
  compile "$(target_of "$1")" Release "$2" "$scratch/linux.o"
  ld.lld-14 -shared --soname "$4.${5%%.*}" --strip-all "$scratch/linux.o" -o "$3/$4.$5"
  chmod 644 "$3/$4.$5"
  ln -sf "$4.$5" "$3/$4.${5%%.*}"
  ln -sf "$4.${5%%.*}" "$3/$4"
}

# A program that finds its libraries beside its own directory. That of Debug has its symbols in a file
# of their own.
linux_program() { # PLATFORM CONFIGURATION SOURCE OUTPUT LIBRARY
  case $1 in
    Linux64) loader=/lib64/ld-linux-x86-64.so.2 ;;
    *) loader=/lib/ld-linux-aarch64.so.1 ;;
  esac
  compile "$(target_of "$1")" "$2" "$3" "$scratch/linux.o" -g
  # shellcheck disable=SC2016 # the loader fills it in
  ld.lld-14 -pie -e RunProgram --dynamic-linker "$loader" -rpath '$ORIGIN/../lib' \
    "$scratch/linux.o" "$5" -o "$4"
  if [ "$2" = Debug ]; then
    llvm-objcopy-14 --only-keep-debug "$4" "$4.debug"
    chmod 644 "$4.debug"
  fi
  llvm-strip-14 --strip-all "$4"
  chmod 755 "$4"
}

# --- side files ------------------------------------------------------------------------------------

property_list() { # FILE, then KEY VALUE pairs
  file=$1
  shift
  {
    printf '<?xml version="1.0" encoding="UTF-8"?>\n<plist version="1.0">\n<dict>\n'
    while [ $# -gt 0 ]; do
      printf '  <key>%s</key>\n  %s\n' "$1" "$2"
      shift 2
    done
    printf '</dict>\n</plist>\n'
  } >"$file"
}

apple_side_files() { # PLATFORM CONFIGURATION DIRECTORY NAME
  property_list "$3/$4.info.plist" \
    CFBundleExecutable "<string>$4</string>" \
    CFBundleIdentifier "<string>org.example.$4</string>" \
    CFBundlePackageType "<string>APPL</string>" \
    CFBundleVersion "<string>1.0</string>"
  debuggable="<false/>"
  [ "$2" = Debug ] && debuggable="<true/>"
  property_list "$3/$4.entitlements" get-task-allow "$debuggable"
  case $1 in
    iOSDevice*) property_list "$3/ResourceRules.plist" \
      rules "<dict><key>.*</key><true/><key>Info.plist</key><dict><key>omit</key><true/></dict></dict>" ;;
  esac
}

classes_dex() { # FILE: no class in it, but a header and a map that add up
  python3 - "$1" <<'PYTHON'
import hashlib, struct, sys, zlib
HEADER = 112
items = struct.pack("<I", 2) + struct.pack("<HHII", 0, 0, 1, 0) + struct.pack("<HHII", 0x1000, 0, 1, HEADER)
size = HEADER + len(items)
rest = struct.pack("<6I", size, HEADER, 0x12345678, 0, 0, HEADER) + struct.pack("<14I", *[0] * 12, len(items), HEADER) + items
signed = hashlib.sha1(rest).digest() + rest
open(sys.argv[1], "wb").write(b"dex\n035\0" + struct.pack("<I", zlib.adler32(signed)) + signed)
PYTHON
}

android_side_files() { # CONFIGURATION DIRECTORY NAME
  debuggable=false
  [ "$1" = Debug ] && debuggable=true
  cat >"$2/AndroidManifest.xml" <<MANIFEST
<?xml version="1.0" encoding="utf-8"?>
<manifest xmlns:android="http://schemas.android.com/apk/res/android" package="org.example.$3"
    android:versionCode="1" android:versionName="1.0">
  <uses-sdk android:minSdkVersion="9"/>
  <application android:label="$3" android:icon="@drawable/ic_launcher" android:debuggable="$debuggable">
    <activity android:name="android.app.NativeActivity">
      <meta-data android:name="android.app.lib_name" android:value="$3"/>
    </activity>
  </application>
</manifest>
MANIFEST
  classes_dex "$2/classes.dex"
}

android_splash() { # DIRECTORY
  cat >"$1/splash_image_def.xml" <<'SPLASH'
<?xml version="1.0" encoding="utf-8"?>
<layer-list xmlns:android="http://schemas.android.com/apk/res/android">
  <item>
    <bitmap android:src="@drawable/splash_image" android:gravity="center"/>
  </item>
</layer-list>
SPLASH
  cat >"$1/styles.xml" <<'STYLES'
<?xml version="1.0" encoding="utf-8"?>
<resources>
  <style name="AppTheme" parent="@android:style/Theme.NoTitleBar">
    <item name="android:windowBackground">@drawable/splash_image_def</item>
  </style>
</resources>
STYLES
}

# --- the projects ----------------------------------------------------------------------------------

sky_chart() { # CONFIGURATION
  source=sky-chart/src/SkyChart.cpp
  for platform in Win32 Win64 OSX32 iOSSimulator iOSDevice32 iOSDevice64 Android; do
    folder=sky-chart/$platform/$1
    mkdir -p "$folder"
    case $platform in
      Win*) windows "$platform" "$1" "$source" "$folder/SkyChart.exe" ;;
      Android)
        android armv7a-linux-androideabi21 "$1" "$source" "$folder/libSkyChart.so"
        android_side_files "$1" "$folder" SkyChart
        [ "$1" = Debug ] || android_splash "$folder" ;;
      *)
        apple "$platform" "$1" "$source" "$folder/SkyChart"
        apple_side_files "$platform" "$1" "$folder" SkyChart ;;
    esac
    case $platform in
      iOSDevice*)
        compile "$(target_of "$platform")" "$1" "$source" "$folder/SkyChart.dSYM" -g ;;
      Win32 | Win64 | OSX32)
        [ "$1" = Release ] || symbols "$platform" "$source" "$folder/SkyChart.qds" ;;
    esac
  done
}

tide_logger() { # CONFIGURATION PLATFORM...
  config=$1 source=tide-logger/src/TideLogger.cpp
  shift
  for platform in "$@"; do
    folder=tide-logger/$platform/$config
    mkdir -p "$folder"
    case $platform in
      Win*) windows "$platform" "$config" "$source" "$folder/TideLogger.dll" ;;
      OSX32) apple "$platform" "$config" "$source" "$folder/libTideLogger.dylib" ;;
      Android)
        android armv7a-linux-androideabi21 "$config" "$source" "$folder/libTideLogger.so"
        android_side_files "$config" "$folder" TideLogger ;;
    esac
    case $config-$platform in
      Debug-Win*) symbols "$platform" "$source" "$folder/TideLogger.vcp" ;;
      Debug-OSX32) symbols "$platform" "$source" "$folder/libTideLogger.vcp" ;;
    esac
  done
}

wind_gauge() { # CONFIGURATION
  for platform in Linux64 LinuxARM64; do
    folder=wind-gauge/$platform/$1
    mkdir -p "$folder"
    linux_program "$platform" "$1" wind-gauge/src/WindGauge.cpp "$folder/windgauge" \
      "wind-gauge/lib/$platform/libbeaufort.so"
  done
}

# Libraries and runtime packages come built already, so that they are the same for every configuration.
package() { # PLATFORM SOURCE FILE SYMBOLFILE LANGUAGE...
  platform=$1 source=$2 file=$3 symbols=$4
  shift 4
  mkdir -p "$(dirname "$file")"
  case $platform in
    OSX32) apple OSX32 Release "$source" "$file" ;;
    *) windows "$platform" Release "$source" "$file" ;;
  esac
  symbols "$platform" "$source" "$symbols"
  for language in "$@"; do
    windows "$platform" Release "$source" "${file%.*}.$language" "-DTRANSLATION=\"$language\""
  done
}

packages() {
  for platform in Win32 Win64; do
    chart=sky-chart/packages/$platform/Ephemeris logger=tide-logger/packages/$platform/TideTables
    package $platform sky-chart/src/Ephemeris.cpp $chart.vpk $chart.qds de fr ja
    package $platform tide-logger/src/TideTables.cpp $logger.vpk $logger.vcp de
  done
  # On OS X a name keeps its dots, so the extension of the symbols is added to it.
  chart=sky-chart/packages/OSX32/vpkEphemeris.dylib
  package OSX32 sky-chart/src/Ephemeris.cpp $chart $chart.qds
}

run_time() { # DIRECTORY: the library of one example stands for each of them
  source=tide-logger/src/TideLogger.cpp
  for processor in x86:i686-linux-android21 armeabi:armv5te-linux-androideabi21 \
    mips:mipsel-linux-android21; do
    for build in debug:Debug release:Release; do
      folder=$1/lib/android/${build%:*}/${processor%:*}
      mkdir -p "$folder"
      android "${processor#*:}" "${build#*:}" "$source" "$folder/libnative-activity.so"
    done
  done
  mkdir -p "$1/Redist/osx32"
  apple OSX32 Release "$source" "$1/Redist/osx32/libtqunwind.1.0.dylib"
}

case ${1-} in
  "")
    for platform in Linux64 LinuxARM64; do
      linux_library $platform wind-gauge/src/Beaufort.cpp wind-gauge/lib/$platform libbeaufort.so 1.2.3
    done
    for configuration in Debug Release; do
      wind_gauge "$configuration"
      sky_chart "$configuration"
      tide_logger "$configuration" Win32 Win64 OSX32 Android
    done
    tide_logger Field Win32 Android
    packages ;;
  --run-time) run_time "$run_time_root" ;;
  *)
    echo "usage: make_outputs.sh [--run-time DIR]" >&2
    exit 2 ;;
esac
