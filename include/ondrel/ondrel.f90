! Module ondrel: explicit interfaces of the routines the Ondrel library
! exports, so that a Fortran caller gets its arguments checked.
!
!   use ondrel
!   real(c_double) :: h
!   integer(c_int32_t) :: ierr
!   h = od_prop('PT', 1.01325d0, 25.0d0, 3, names, conc, 'h', ierr)
!
! The routines keep the calling convention they always had (arguments by
! reference, texts with hidden lengths): the module only declares them.
! Their documentation is in the C headers: ondrel/ondrel.h (mixture model),
! ondrel/host.h (host functions), ondrel/if97_qv.h (IF97 adapter) and
! ondrel/pwsftn.h (IFC-67 package). Kinds come from iso_c_binding:
! real(c_double) is double precision, integer(c_int32_t) the default integer.
!
! The error record of PWSFTN stays the common block of the host:
!   integer :: iunit, maxmsg, maxerr, nerr
!   common /pwserr/ iunit, maxmsg, maxerr, nerr
!
! The module holds interfaces only: its .mod file is all a caller needs (no
! object code to link). It is installed with the library, compiled by the
! compiler the library was built with; with another compiler, compile this
! file first.
module ondrel
  use, intrinsic :: iso_c_binding, only: c_double, c_int32_t
  implicit none
  private
  public :: c_double, c_int32_t

  ! --- procedures a caller hands to the library ------------------------------
  public :: ondrel_fluidpath_proc, ondrel_getfluid_proc
  public :: pws_line_proc, pws_func2, pws_func3, pws_inverse_routine
  abstract interface
    ! A host's fluidpath: the data directory of library into buffer.
    subroutine ondrel_fluidpath_proc(buffer, library)
      character(len=*), intent(out) :: buffer
      character(len=*), intent(in) :: library
    end subroutine ondrel_fluidpath_proc
    ! A host's getfluid: the record name of its fluid database into lines;
    ! returns the number of lines, status 0 when no record is available.
    function ondrel_getfluid_proc(directory, name, lines, status) result(count)
      import :: c_int32_t
      character(len=*), intent(in) :: directory, name
      character(len=*), intent(out) :: lines(*)
      integer(c_int32_t), intent(out) :: status
      integer(c_int32_t) :: count
    end function ondrel_getfluid_proc
    ! Receives each line written to channel 13.
    subroutine pws_line_proc(line)
      character(len=*), intent(in) :: line
    end subroutine pws_line_proc
    ! A property routine of PWSFTN of two or three arguments.
    function pws_func2(x, y) result(f)
      import :: c_double
      real(c_double), intent(in) :: x, y
      real(c_double) :: f
    end function pws_func2
    function pws_func3(x, y, z) result(f)
      import :: c_double
      real(c_double), intent(in) :: x, y, z
      real(c_double) :: f
    end function pws_func3
    ! An inverse routine of PWSFTN: IREG = PWSRXY(A, B, EPS).
    function pws_inverse_routine(a, b, eps) result(ireg)
      import :: c_double, c_int32_t
      real(c_double), intent(inout) :: a, b
      real(c_double), intent(in) :: eps
      integer(c_int32_t) :: ireg
    end function pws_inverse_routine
  end interface

  ! --- mixture model (ondrel/ondrel.h) -------------------------------------------
  public :: od_prop, od_allprops, od_info, od_compset, od_getversion, ondrel_sub, x_gas
  interface
    function od_prop(inputspec, input1, input2, ncomp, names, conc, outname, errcode) result(value)
      import :: c_double, c_int32_t
      character(len=*), intent(in) :: inputspec
      real(c_double), intent(in) :: input1, input2
      integer(c_int32_t), intent(in) :: ncomp
      character(len=*), intent(in) :: names(*)
      real(c_double), intent(in) :: conc(*)
      character(len=*), intent(in) :: outname
      integer(c_int32_t), intent(out) :: errcode
      real(c_double) :: value
    end function od_prop
    subroutine od_allprops(inputspec, input1, input2, ncomp, names, conc, p, t, v, d, h, s, u, &
                           cv, dp_dt, dp_dv, d2p_dt2, d2p_dv2, d2p_dtdv, dcv_dt, eta, lambda, errcode)
      import :: c_double, c_int32_t
      character(len=*), intent(in) :: inputspec
      real(c_double), intent(in) :: input1, input2
      integer(c_int32_t), intent(in) :: ncomp
      character(len=*), intent(in) :: names(*)
      real(c_double), intent(in) :: conc(*)
      real(c_double), intent(out) :: p, t, v, d, h, s, u, cv, dp_dt, dp_dv, d2p_dt2, d2p_dv2, &
                                     d2p_dtdv, dcv_dt, eta, lambda
      integer(c_int32_t), intent(out) :: errcode
    end subroutine od_allprops
    function od_info(ncomp, names, conc, infoname, errcode) result(value)
      import :: c_double, c_int32_t
      integer(c_int32_t), intent(in) :: ncomp
      character(len=*), intent(in) :: names(*)
      real(c_double), intent(in) :: conc(*)
      character(len=*), intent(in) :: infoname
      integer(c_int32_t), intent(out) :: errcode
      real(c_double) :: value
    end function od_info
    ! names must have room for 250 names.
    subroutine od_compset(n, names)
      import :: c_int32_t
      integer(c_int32_t), intent(out) :: n
      character(len=*), intent(out) :: names(*)
    end subroutine od_compset
    subroutine od_getversion(version)
      import :: c_int32_t
      integer(c_int32_t), intent(out) :: version(4)
    end subroutine od_getversion
    subroutine ondrel_sub()
    end subroutine ondrel_sub
    function x_gas(p, t, n, names, conc) result(value)
      import :: c_double, c_int32_t
      real(c_double), intent(in) :: p, t
      integer(c_int32_t), intent(in) :: n
      character(len=*), intent(in) :: names(*)
      real(c_double), intent(in) :: conc(*)
      real(c_double) :: value
    end function x_gas
  end interface

  ! --- host functions (ondrel/host.h) --------------------------------------------
  public :: ondrel_set_host_functions
  interface
    subroutine ondrel_set_host_functions(fluidpath, getfluid)
      import :: ondrel_fluidpath_proc, ondrel_getfluid_proc
      procedure(ondrel_fluidpath_proc) :: fluidpath
      procedure(ondrel_getfluid_proc) :: getfluid
    end subroutine ondrel_set_host_functions
  end interface

  ! --- IF97 adapter (ondrel/if97_qv.h) ---------------------------------------------
  public :: if97_getfluid, if97_getinfo, if97_prop, if97_props, if97_allprops
  public :: if97_getversion, if97_qv_sub
  interface
    subroutine if97_getfluid(n, names, concentrations)
      import :: c_double, c_int32_t
      integer(c_int32_t), intent(inout) :: n
      character(len=*), intent(out) :: names(*)
      real(c_double), intent(out) :: concentrations(*)
    end subroutine if97_getfluid
    function if97_getinfo(info, message) result(value)
      import :: c_double
      character(len=*), intent(in) :: info
      character(len=*), intent(out) :: message
      real(c_double) :: value
    end function if97_getinfo
    function if97_prop(spec, value1, value2, property, message) result(value)
      import :: c_double
      character(len=*), intent(in) :: spec
      real(c_double), intent(in) :: value1, value2
      character(len=*), intent(in) :: property
      character(len=*), intent(out) :: message
      real(c_double) :: value
    end function if97_prop
    subroutine if97_props(spec, value1, value2, properties, results, message)
      import :: c_double
      character(len=*), intent(in) :: spec
      real(c_double), intent(in) :: value1, value2
      character(len=*), intent(in) :: properties
      real(c_double), intent(out) :: results(*)
      character(len=*), intent(out) :: message
    end subroutine if97_props
    subroutine if97_allprops(spec, value1, value2, p, t, v, d, h, s, u, x, first, second, &
                             cv, eta, lambda, message)
      import :: c_double
      character(len=*), intent(in) :: spec
      real(c_double), intent(in) :: value1, value2
      real(c_double), intent(out) :: p, t, v, d, h, s, u, x
      real(c_double), intent(out) :: first(20), second(20)
      real(c_double), intent(out) :: cv, eta, lambda
      character(len=*), intent(out) :: message
    end subroutine if97_allprops
    subroutine if97_getversion(major, minor, patch, build)
      import :: c_int32_t
      integer(c_int32_t), intent(out) :: major, minor, patch, build
    end subroutine if97_getversion
    subroutine if97_qv_sub()
    end subroutine if97_qv_sub
  end interface

  ! --- PWSFTN, IFC-67 (ondrel/pwsftn.h) -------------------------------------------
  public :: pwser, pws_set_channel13_file, pws_set_channel13_callback, pws_set_channel13_stderr
  public :: pws_pt, psl1, psl1_slope, pws_tp, comt1, comt2, comt3
  public :: pws_c1, pws_c2, pws_d1, pws_d2, pws_d3, pws_e1, pws_e2, pws_e3
  public :: pws_f1, pws_f2, pws_f3, pws_h1, pws_h2, pws_h3, pws_a3, pws_ci, pws_cj
  public :: pws_i1, pws_i2, pws_i3, pws_it, pws_id
  public :: pwsrpt, pwsrph, pwsrps, pwsrpu, pwsrpv, pwsrpx, pwsrtv, pwsrth, pwsrtx
  public :: pwsrtu, pwsrts, pwsrsx, pwsrhs, pwsrus, pwsrvh, pwsrvs, pwsrvu
  public :: pws_hp, pws_sp, pws_up, pws_ht, pws_ut, pwsftn
  interface
    subroutine pwser(name, icode, x1, x2)
      import :: c_double, c_int32_t
      character(len=*), intent(in) :: name
      integer(c_int32_t), intent(in) :: icode
      real(c_double), intent(in) :: x1, x2
    end subroutine pwser
    subroutine pws_set_channel13_file(path, ierr)
      import :: c_int32_t
      character(len=*), intent(in) :: path
      integer(c_int32_t), intent(out) :: ierr
    end subroutine pws_set_channel13_file
    subroutine pws_set_channel13_callback(callback)
      import :: pws_line_proc
      procedure(pws_line_proc) :: callback
    end subroutine pws_set_channel13_callback
    subroutine pws_set_channel13_stderr()
    end subroutine pws_set_channel13_stderr

    ! Saturation line and common terms.
    function pws_pt(t) result(p)
      import :: c_double
      real(c_double), intent(in) :: t
      real(c_double) :: p
    end function pws_pt
    function psl1(t) result(p)
      import :: c_double
      real(c_double), intent(in) :: t
      real(c_double) :: p
    end function psl1
    function psl1_slope() result(slope)
      import :: c_double
      real(c_double) :: slope
    end function psl1_slope
    function pws_tp(p) result(t)
      import :: c_double
      real(c_double), intent(in) :: p
      real(c_double) :: t
    end function pws_tp
    subroutine comt1(p, t)
      import :: c_double
      real(c_double), intent(in) :: p, t
    end subroutine comt1
    subroutine comt2(p, t)
      import :: c_double
      real(c_double), intent(in) :: p, t
    end subroutine comt2
    subroutine comt3(v, t)
      import :: c_double
      real(c_double), intent(in) :: v, t
    end subroutine comt3

    ! Region equations: (p, t) in sub-region 1 and region 2, (v, t) in region 3.
    function pws_c1(x, y) result(f)
      import :: c_double
      real(c_double), intent(in) :: x, y
      real(c_double) :: f
    end function pws_c1
    function pws_c2(x, y) result(f)
      import :: c_double
      real(c_double), intent(in) :: x, y
      real(c_double) :: f
    end function pws_c2
    function pws_d1(x, y) result(f)
      import :: c_double
      real(c_double), intent(in) :: x, y
      real(c_double) :: f
    end function pws_d1
    function pws_d2(x, y) result(f)
      import :: c_double
      real(c_double), intent(in) :: x, y
      real(c_double) :: f
    end function pws_d2
    function pws_d3(x, y) result(f)
      import :: c_double
      real(c_double), intent(in) :: x, y
      real(c_double) :: f
    end function pws_d3
    function pws_e1(x, y) result(f)
      import :: c_double
      real(c_double), intent(in) :: x, y
      real(c_double) :: f
    end function pws_e1
    function pws_e2(x, y) result(f)
      import :: c_double
      real(c_double), intent(in) :: x, y
      real(c_double) :: f
    end function pws_e2
    function pws_e3(x, y) result(f)
      import :: c_double
      real(c_double), intent(in) :: x, y
      real(c_double) :: f
    end function pws_e3
    function pws_f1(x, y) result(f)
      import :: c_double
      real(c_double), intent(in) :: x, y
      real(c_double) :: f
    end function pws_f1
    function pws_f2(x, y) result(f)
      import :: c_double
      real(c_double), intent(in) :: x, y
      real(c_double) :: f
    end function pws_f2
    function pws_f3(x, y) result(f)
      import :: c_double
      real(c_double), intent(in) :: x, y
      real(c_double) :: f
    end function pws_f3
    function pws_h1(x, y) result(f)
      import :: c_double
      real(c_double), intent(in) :: x, y
      real(c_double) :: f
    end function pws_h1
    function pws_h2(x, y) result(f)
      import :: c_double
      real(c_double), intent(in) :: x, y
      real(c_double) :: f
    end function pws_h2
    function pws_h3(x, y) result(f)
      import :: c_double
      real(c_double), intent(in) :: x, y
      real(c_double) :: f
    end function pws_h3
    function pws_a3(x, y) result(f)
      import :: c_double
      real(c_double), intent(in) :: x, y
      real(c_double) :: f
    end function pws_a3
    function pws_ci(x, y) result(f)
      import :: c_double
      real(c_double), intent(in) :: x, y
      real(c_double) :: f
    end function pws_ci
    function pws_cj(x, y) result(f)
      import :: c_double
      real(c_double), intent(in) :: x, y
      real(c_double) :: f
    end function pws_cj

    ! Iterations.
    function pws_i1(f, fixed, target, a, b, eps) result(x)
      import :: c_double, pws_func2
      procedure(pws_func2) :: f
      real(c_double), intent(in) :: fixed, target, eps
      real(c_double), intent(inout) :: a, b
      real(c_double) :: x
    end function pws_i1
    function pws_i2(f, fixed, target, a, b, eps) result(x)
      import :: c_double, pws_func2
      procedure(pws_func2) :: f
      real(c_double), intent(in) :: fixed, target, eps
      real(c_double), intent(inout) :: a, b
      real(c_double) :: x
    end function pws_i2
    function pws_i3(f, fixed, target, a, b, eps) result(x)
      import :: c_double, pws_func3
      procedure(pws_func3) :: f
      real(c_double), intent(in) :: fixed, target, eps
      real(c_double), intent(inout) :: a, b
      real(c_double) :: x
    end function pws_i3
    function pws_it(p) result(t)
      import :: c_double
      real(c_double), intent(in) :: p
      real(c_double) :: t
    end function pws_it
    subroutine pws_id(f1, target1, f2, target2, xa, xb, ya, yb, eps)
      import :: c_double, pws_func2
      procedure(pws_func2) :: f1, f2
      real(c_double), intent(in) :: target1, target2, eps
      real(c_double), intent(inout) :: xa, xb, ya, yb
    end subroutine pws_id

    ! Inverse routines: IREG = PWSRXY(A, B, EPS).
    function pwsrpt(a, b, eps) result(ireg)
      import :: c_double, c_int32_t
      real(c_double), intent(inout) :: a, b
      real(c_double), intent(in) :: eps
      integer(c_int32_t) :: ireg
    end function pwsrpt
    function pwsrph(a, b, eps) result(ireg)
      import :: c_double, c_int32_t
      real(c_double), intent(inout) :: a, b
      real(c_double), intent(in) :: eps
      integer(c_int32_t) :: ireg
    end function pwsrph
    function pwsrps(a, b, eps) result(ireg)
      import :: c_double, c_int32_t
      real(c_double), intent(inout) :: a, b
      real(c_double), intent(in) :: eps
      integer(c_int32_t) :: ireg
    end function pwsrps
    function pwsrpu(a, b, eps) result(ireg)
      import :: c_double, c_int32_t
      real(c_double), intent(inout) :: a, b
      real(c_double), intent(in) :: eps
      integer(c_int32_t) :: ireg
    end function pwsrpu
    function pwsrpv(a, b, eps) result(ireg)
      import :: c_double, c_int32_t
      real(c_double), intent(inout) :: a, b
      real(c_double), intent(in) :: eps
      integer(c_int32_t) :: ireg
    end function pwsrpv
    function pwsrpx(a, b, eps) result(ireg)
      import :: c_double, c_int32_t
      real(c_double), intent(inout) :: a, b
      real(c_double), intent(in) :: eps
      integer(c_int32_t) :: ireg
    end function pwsrpx
    function pwsrtv(a, b, eps) result(ireg)
      import :: c_double, c_int32_t
      real(c_double), intent(inout) :: a, b
      real(c_double), intent(in) :: eps
      integer(c_int32_t) :: ireg
    end function pwsrtv
    function pwsrth(a, b, eps) result(ireg)
      import :: c_double, c_int32_t
      real(c_double), intent(inout) :: a, b
      real(c_double), intent(in) :: eps
      integer(c_int32_t) :: ireg
    end function pwsrth
    function pwsrtx(a, b, eps) result(ireg)
      import :: c_double, c_int32_t
      real(c_double), intent(inout) :: a, b
      real(c_double), intent(in) :: eps
      integer(c_int32_t) :: ireg
    end function pwsrtx
    function pwsrtu(a, b, eps) result(ireg)
      import :: c_double, c_int32_t
      real(c_double), intent(inout) :: a, b
      real(c_double), intent(in) :: eps
      integer(c_int32_t) :: ireg
    end function pwsrtu
    function pwsrts(a, b, eps) result(ireg)
      import :: c_double, c_int32_t
      real(c_double), intent(inout) :: a, b
      real(c_double), intent(in) :: eps
      integer(c_int32_t) :: ireg
    end function pwsrts
    function pwsrsx(a, b, eps) result(ireg)
      import :: c_double, c_int32_t
      real(c_double), intent(inout) :: a, b
      real(c_double), intent(in) :: eps
      integer(c_int32_t) :: ireg
    end function pwsrsx
    function pwsrhs(a, b, eps) result(ireg)
      import :: c_double, c_int32_t
      real(c_double), intent(inout) :: a, b
      real(c_double), intent(in) :: eps
      integer(c_int32_t) :: ireg
    end function pwsrhs
    function pwsrus(a, b, eps) result(ireg)
      import :: c_double, c_int32_t
      real(c_double), intent(inout) :: a, b
      real(c_double), intent(in) :: eps
      integer(c_int32_t) :: ireg
    end function pwsrus
    function pwsrvh(a, b, eps) result(ireg)
      import :: c_double, c_int32_t
      real(c_double), intent(inout) :: a, b
      real(c_double), intent(in) :: eps
      integer(c_int32_t) :: ireg
    end function pwsrvh
    function pwsrvs(a, b, eps) result(ireg)
      import :: c_double, c_int32_t
      real(c_double), intent(inout) :: a, b
      real(c_double), intent(in) :: eps
      integer(c_int32_t) :: ireg
    end function pwsrvs
    function pwsrvu(a, b, eps) result(ireg)
      import :: c_double, c_int32_t
      real(c_double), intent(inout) :: a, b
      real(c_double), intent(in) :: eps
      integer(c_int32_t) :: ireg
    end function pwsrvu

    ! One property of a state found by an inner inverse routine.
    function pws_hp(p, v, eps) result(h)
      import :: c_double
      real(c_double), intent(in) :: p, v, eps
      real(c_double) :: h
    end function pws_hp
    function pws_sp(p, v, eps) result(s)
      import :: c_double
      real(c_double), intent(in) :: p, v, eps
      real(c_double) :: s
    end function pws_sp
    function pws_up(p, v, eps) result(u)
      import :: c_double
      real(c_double), intent(in) :: p, v, eps
      real(c_double) :: u
    end function pws_up
    function pws_ht(t, s, eps) result(h)
      import :: c_double
      real(c_double), intent(in) :: t, s, eps
      real(c_double) :: h
    end function pws_ht
    function pws_ut(t, s, eps) result(u)
      import :: c_double
      real(c_double), intent(in) :: t, s, eps
      real(c_double) :: u
    end function pws_ut

    ! Entry routine: CALL PWSFTN(PWSRPH, X, Y, 'H,S,V.', RESULT).
    subroutine pwsftn(xysub, x, y, depend, result)
      import :: c_double, pws_inverse_routine
      procedure(pws_inverse_routine) :: xysub
      real(c_double), intent(in) :: x, y
      character(len=*), intent(in) :: depend
      real(c_double), intent(inout) :: result(*)
    end subroutine pwsftn
  end interface
end module ondrel
