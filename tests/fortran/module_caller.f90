! Calls the exported routines through the module ondrel, as a Fortran
! program linked with libondrel.so does: the module's interfaces must match
! the routines (argument order, kinds, hidden text lengths, procedure
! arguments), or the answers below come out wrong. Every family is called:
! host registration, mixture model, IF97 adapter, PWSFTN.
program module_caller
  use ondrel
  implicit none
  external :: host_fluidpath, catch_line
  integer(c_int32_t), external :: host_getfluid
  integer(c_int32_t) :: fluidpath_calls, lines_caught
  character(len=200) :: last_line
  common /host_calls/ fluidpath_calls, lines_caught, last_line
  integer(c_int32_t) :: iunit, maxmsg, maxerr, nerr
  common /pwserr/ iunit, maxmsg, maxerr, nerr
  character(len=8) :: air(3), table(250)
  character(len=80) :: msg
  real(c_double) :: conc(3), h, all(16), r(2), r2(1), a, b, p
  integer(c_int32_t) :: ierr, n, version(4), major, minor, patch, build, errors_before

  air = [character(len=8) :: 'N2', 'O2', 'AR']
  conc = [0.7809d0, 0.2095d0, 0.0096d0]
  fluidpath_calls = 0
  lines_caught = 0

  ! Host registration: the library asks the Fortran fluidpath for its directory.
  call ondrel_set_host_functions(host_fluidpath, host_getfluid)

  ! Mixture model: air at 25 C has h = 0 (elements at their reference state).
  h = od_prop('PT', 1.01325d0, 25.0d0, 3, air, conc, 'h', ierr)
  if (ierr /= 0 .or. abs(h) > 1d-3) error stop 'od_prop: h of air at 25 C'
  if (fluidpath_calls /= 1) error stop 'the table is loaded through the host fluidpath'
  call od_allprops('PT', 1.01325d0, 25.0d0, 3, air, conc, all(1), all(2), all(3), all(4), all(5), &
                   all(6), all(7), all(8), all(9), all(10), all(11), all(12), all(13), all(14), all(15), &
                   all(16), ierr)
  if (ierr /= 0 .or. .not. (near(all(1), 1.01325d0, 0d0) .and. near(all(2), 25d0, 0d0) .and. near(all(5), h, 0d0))) &
      error stop 'od_allprops'
  if (abs(all(3) * all(4) - 1d0) > 1d-12) error stop 'od_allprops: v and d'
  if (abs(od_info(3, air, conc, 'M_mol', ierr) - 0.028965d0) > 2d-5) error stop 'od_info: M of air'
  call od_compset(n, table)
  if (n /= 63 .or. table(1) /= 'N2') error stop 'od_compset'
  call od_getversion(version)
  if (any(version /= [3, 0, 1, 24])) error stop 'od_getversion'
  if (.not. near(x_gas(101325d0, 298.15d0, 3, air, conc), sum(conc), 0d0)) error stop 'x_gas of a dry gas'

  ! IF97 adapter.
  if (.not. near(if97_getinfo('T_max', msg), 2000d0, 0d0) .or. msg /= 'No errors') error stop 'if97_getinfo'
  if (abs(if97_prop('Tq', 100d0, 0d0, 'P', msg) - 1.01418d0) > 1d-5) error stop 'if97_prop: psat at 100 C'
  call if97_props('PT', 1d0, 20d0, 'h,s', r, msg)
  if (msg /= 'No errors' .or. r(1) <= 0d0 .or. r(2) <= 0d0) error stop 'if97_props'
  call if97_getversion(major, minor, patch, build)
  if (major /= 1) error stop 'if97_getversion'

  ! PWSFTN: saturation line, entry routine with an inverse routine, an
  ! iteration given a region equation, and an error line on channel 13.
  p = pws_pt(100d0)
  if (abs(p - 1.01325d0) > 1d-3) error stop 'pws_pt at 100 C'
  if (.not. near(psl1(100d0), p, 0d0)) error stop 'psl1'
  if (psl1_slope() <= 0d0) error stop 'psl1_slope'
  if (abs(pws_tp(p) - 100d0) > 1d-2) error stop 'pws_tp'   ! it stops on a pressure residual
  call pwsftn(pwsrpt, 10d0, 100d0, 'H,V.', r)
  if (.not. near(r(1), pws_d1(10d0, 100d0), 0d0)) error stop 'pwsftn with pwsrpt: H'
  if (.not. near(r(2), pws_c1(10d0, 100d0), 0d0)) error stop 'pwsftn with pwsrpt: V'
  call pwsftn(pwsrph, 10d0, r(1), 'T.', r2)
  if (abs(r2(1) - 100d0) > 1d-6) error stop 'pwsftn with pwsrph'
  a = 50d0
  b = 150d0
  if (abs(pws_i1(pws_d1, 10d0, r(1), a, b, 1d-12) - 100d0) > 1d-6) error stop 'pws_i1 with pws_d1'
  call pws_set_channel13_callback(catch_line)
  iunit = 13
  errors_before = nerr
  call pwser('CALLER', 12, 2000d0, 900d0)
  iunit = 6
  call pws_set_channel13_stderr()
  if (nerr /= errors_before + 1 .or. lines_caught /= 1) error stop 'pwser counts and writes one line'
  if (index(last_line, 'PWSFTN-ERROR') == 0 .or. index(last_line, 'Out of range') == 0) error stop 'pwser line'
  print '(a)', 'module caller: all checks passed'
contains
  logical function near(x, y, tol)
    real(c_double), intent(in) :: x, y, tol
    near = abs(x - y) <= tol
  end function near
end program module_caller

! The host's data directory: the one the tests name in ONDREL_FLUIDPATH.
subroutine host_fluidpath(buffer, library)
  use ondrel, only: c_int32_t
  character(len=*), intent(out) :: buffer
  character(len=*), intent(in) :: library
  integer(c_int32_t) :: fluidpath_calls, lines_caught
  character(len=200) :: last_line
  common /host_calls/ fluidpath_calls, lines_caught, last_line
  if (library /= 'Ondrel' .or. len(buffer) /= 256) error stop 'fluidpath is asked for Ondrel, 256 characters'
  fluidpath_calls = fluidpath_calls + 1
  call get_environment_variable('ONDREL_FLUIDPATH', buffer)
end subroutine host_fluidpath

! The host's fluid database: none (the gas data file is read).
function host_getfluid(directory, name, lines, status) result(count)
  use ondrel, only: c_int32_t
  character(len=*), intent(in) :: directory, name
  character(len=*), intent(out) :: lines(*)
  integer(c_int32_t), intent(out) :: status
  integer(c_int32_t) :: count
  if (len(directory) + len(name) + len(lines(1)) < 0) lines(1) = ''
  status = 0
  count = 0
end function host_getfluid

! Receives the lines written to channel 13.
subroutine catch_line(line)
  use ondrel, only: c_int32_t
  character(len=*), intent(in) :: line
  integer(c_int32_t) :: fluidpath_calls, lines_caught
  character(len=200) :: last_line
  common /host_calls/ fluidpath_calls, lines_caught, last_line
  lines_caught = lines_caught + 1
  last_line = line
end subroutine catch_line
