! Calls the IF97 adapter's exports as ordinary external procedures of a
! Fortran program, with Fortran's own text arguments and hidden lengths.
program fortran_caller
  implicit none
  real(8), external :: if97_getinfo, if97_prop
  character(len=80) :: msg
  character(len=8) :: names(3) = ['N2      ', 'O2      ', 'AR      ']
  real(8) :: conc(3) = [0.2d0, 0.3d0, 0.5d0], r(3), first(20), second(20)
  real(8) :: p, t, v, d, h, s, u, x, cv, eta, lambda
  integer(4) :: n = 3

  call if97_getfluid(n, names, conc)
  if (n /= 1 .or. names(1) /= 'H2O' .or. names(3) /= '?') error stop 'getfluid defines pure water'
  if (.not. near(sum(abs(conc - [1d0, 0d0, 0d0])), 0d0, 0d0)) error stop 'getfluid sets the concentrations'
  if (.not. near(if97_getinfo('T_max', msg), 2000d0, 0d0) .or. msg /= 'No errors') error stop 'getinfo T_max'
  if (.not. near(if97_getinfo('t_max', msg), 0d0, 0d0)) error stop 'getinfo is case-sensitive'
  if (msg /= 'Error in Quintaver: for IF97 no info available for t_max.') error stop 'getinfo message'
  if (.not. near(if97_prop('Tq', 100d0, 0d0, 'P.', msg), 1.0141797792d0, 1d-9)) error stop 'prop Tq P.'
  if (msg /= 'No errors') error stop 'prop message'
  call if97_props('PT', 1d0, 20d0, 'h,s', r, msg)
  if (.not. near(r(1), 84.0118111671d0, 1d-6) .or. r(2) <= 0d0) error stop 'props fills one slot per name'
  call if97_allprops('Pq', 1d0, 1d0, p, t, v, d, h, s, u, x, first, second, cv, eta, lambda, msg)
  if (.not. near(v, 1.6940225229d0, 1d-7) .or. .not. near(d * v, 1d0, 1d-15)) error stop 'allprops v and d'
  if (.not. near(second(1), 1d0, 0d0) .or. .not. near(first(20), -8888.8d0, 0d0)) error stop 'allprops lists'
  if (msg /= 'No errors') error stop 'allprops message'
  print '(a)', 'fortran caller: all checks passed'
contains
  logical function near(a, b, tol)
    real(8), intent(in) :: a, b, tol
    near = abs(a - b) <= tol
  end function
end program
