# Runs the benchmark programs one after the other, and fails after the last one if a limit was
# broken. Takes PROGRAMS, and SCREEN_PROGRAMS with the command DISPLAY that gives them a display;
# each is a list.
set(ENV{LIBGL_ALWAYS_SOFTWARE} 1)
set(ENV{SDL_AUDIODRIVER} dummy)
# Many short turns: what another program takes away then falls on both sides of a ratio.
set(arguments --enforce --benchmark_repetitions=15 --benchmark_min_time=0.05
  --benchmark_enable_random_interleaving=true)
set(failed "")
foreach(program ${PROGRAMS})
  execute_process(COMMAND ${program} ${arguments} RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    list(APPEND failed ${program})
  endif()
endforeach()
foreach(program ${SCREEN_PROGRAMS})
  execute_process(COMMAND ${DISPLAY} ${program} ${arguments} RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    list(APPEND failed ${program})
  endif()
endforeach()
if(failed)
  message(FATAL_ERROR "Limits broken, or no result: ${failed}")
endif()
