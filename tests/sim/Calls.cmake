# SPDX-License-Identifier: MIT
# vymkit_simulate_calls(<target>): the calls of the system that the simulation has for itself.
function(vymkit_simulate_calls target)
  foreach(call calloc
               pthread_create pthread_join pthread_cond_wait pthread_cond_timedwait
               pthread_cond_clockwait pthread_cond_signal pthread_cond_broadcast sched_yield
               socket connect send recv __recv_chk poll __poll_chk setsockopt getsockopt ioctl
               shutdown close)
    target_link_options(${target} PRIVATE LINKER:--wrap=${call})
  endforeach()
endfunction()
